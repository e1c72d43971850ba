#include "classroom/Picture.h"

#include <algorithm>
#include <cmath>

namespace tolvan::classroom {
namespace {

using Point = ConsoleOperations::Point;

bool isNear(Point a, Point b, double tolerance) {
    return std::abs(a.x - b.x) <= tolerance && std::abs(a.y - b.y) <= tolerance;
}

bool isSame(const Figure& a, const Figure& b, double tolerance) {
    if (a.kind != b.kind || a.colour != b.colour || a.filled != b.filled) return false;
    if (a.kind == Figure::Kind::Circle)
        return isNear(a.from, b.from, tolerance) && std::abs(a.radius - b.radius) <= tolerance;
    const bool turned = isNear(a.from, b.to, tolerance) && isNear(a.to, b.from, tolerance);
    return turned || (isNear(a.from, b.from, tolerance) && isNear(a.to, b.to, tolerance));
}

// The part of a row or column that is on the display.
double onDisplay(double value, int size) {
    return std::clamp(value, -1.0, static_cast<double>(size));
}

bool isFinite(Point point) {
    return std::isfinite(point.x) && std::isfinite(point.y);
}

}  // namespace

void Picture::add(const Figure& figure) {
    keep(figure);
    paint(figure);
}

void Picture::keep(const Figure& figure) {
    ++count_;
    if (figures_.size() < mostKept) figures_.push_back(figure);
}

void Picture::clear() {
    count_ = 0;
    figures_.clear();
    pixels_.clear();
}

void Picture::set(double x, double y, Colour colour) {
    const double column = std::floor(x);
    const double row = std::floor(y);
    if (!(column >= 0 && column < displayWidth && row >= 0 && row < displayHeight)) return;
    pixels_[static_cast<std::size_t>(row) * displayWidth + static_cast<std::size_t>(column)] = colour;
}

void Picture::paint(const Figure& figure) {
    if (pixels_.empty()) pixels_.assign(std::size_t{displayWidth} * displayHeight, displayBackground);
    if (!isFinite(figure.from) || !isFinite(figure.to)) return;
    const auto [from, to] = std::pair(figure.from, figure.to);
    switch (figure.kind) {
        case Figure::Kind::Point:
            return set(from.x, from.y, figure.colour);
        case Figure::Kind::Line:
            return paintLine(from, to, figure.colour);
        case Figure::Kind::Circle:
            return paintCircle(figure);
        case Figure::Kind::Box:
            if (!figure.filled) {
                for (const auto& [start, end] : {std::pair(from, Point{to.x, from.y}),
                                                 {Point{to.x, from.y}, to},
                                                 {to, Point{from.x, to.y}},
                                                 {Point{from.x, to.y}, from}})
                    paintLine(start, end, figure.colour);
                return;
            }
            const double bottom = onDisplay(std::max(from.y, to.y), displayHeight);
            for (double y = onDisplay(std::min(from.y, to.y), displayHeight); y <= bottom; ++y)
                paintRow(from.x, to.x, static_cast<int>(std::floor(y)), figure.colour);
    }
}

void Picture::paintRow(double from, double to, int y, Colour colour) {
    const double end = onDisplay(std::max(from, to), displayWidth);
    for (double x = onDisplay(std::min(from, to), displayWidth); x <= end; ++x) set(x, y, colour);
}

// Only the part of the line that can be seen is walked along.
void Picture::paintLine(Point from, Point to, Colour colour) {
    const double dx = static_cast<double>(to.x) - from.x;
    const double dy = static_cast<double>(to.y) - from.y;
    double begin = 0;
    double end = 1;
    const auto clip = [&](double start, double step, double size) {
        if (step == 0) {
            if (start < 0 || start >= size) end = -1;
            return;
        }
        const double a = (0 - start) / step;
        const double b = (size - start) / step;
        begin = std::max(begin, std::min(a, b));
        end = std::min(end, std::max(a, b));
    };
    clip(from.x, dx, displayWidth);
    clip(from.y, dy, displayHeight);
    const double steps = std::ceil(std::max(std::abs(dx), std::abs(dy)) * std::max(end - begin, 0.0));
    if (begin > end) return;
    for (double step = 0; step <= steps; ++step) {
        const double part = steps == 0 ? begin : begin + (end - begin) * step / steps;
        set(from.x + dx * part, from.y + dy * part, colour);
    }
}

void Picture::paintCircle(const Figure& figure) {
    const double radius = std::abs(static_cast<double>(figure.radius));
    if (!std::isfinite(radius)) return;
    const double x = figure.from.x;
    const double y = figure.from.y;
    const double last = onDisplay(y + radius, displayHeight);
    for (double row = std::max(std::floor(onDisplay(y - radius, displayHeight)), 0.0); row <= last; ++row) {
        const double half = std::sqrt(std::max(radius * radius - (row - y) * (row - y), 0.0));
        if (figure.filled) {
            paintRow(x - half, x + half, static_cast<int>(row), figure.colour);
        } else {
            set(x - half, row, figure.colour);
            set(x + half, row, figure.colour);
        }
    }
    if (figure.filled) return;
    // Where it is steep, a row has one point of each side; where it is flat, a column has.
    const double right = onDisplay(x + radius, displayWidth);
    for (double column = std::max(std::floor(onDisplay(x - radius, displayWidth)), 0.0); column <= right; ++column) {
        const double half = std::sqrt(std::max(radius * radius - (column - x) * (column - x), 0.0));
        set(column, y - half, figure.colour);
        set(column, y + half, figure.colour);
    }
}

Colour Picture::at(int x, int y) const {
    return pixels_.empty() ? displayBackground
                           : pixels_[static_cast<std::size_t>(y) * displayWidth + static_cast<std::size_t>(x)];
}

bool Picture::hasNear(int x, int y, int distance, Colour colour) const {
    for (int row = std::max(y - distance, 0); row <= std::min(y + distance, displayHeight - 1); ++row)
        for (int column = std::max(x - distance, 0); column <= std::min(x + distance, displayWidth - 1); ++column)
            if (at(column, row) == colour) return true;
    return false;
}

bool Picture::sameLook(const Picture& a, const Picture& b, int tolerance) {
    for (int y = 0; y < displayHeight; ++y)
        for (int x = 0; x < displayWidth; ++x) {
            if (a.at(x, y) == b.at(x, y)) continue;
            if (!b.hasNear(x, y, tolerance, a.at(x, y)) || !a.hasNear(x, y, tolerance, b.at(x, y))) return false;
        }
    return true;
}

bool Picture::sameFigures(const Picture& a, const Picture& b, double tolerance) {
    return a.count_ == b.count_ &&
           std::equal(a.figures_.begin(), a.figures_.end(), b.figures_.begin(), b.figures_.end(),
                      [&](const Figure& x, const Figure& y) { return isSame(x, y, tolerance); });
}

void Picture::write(PackWriter& pack) const {
    pack.number(static_cast<std::int64_t>(count_));
    pack.list(figures_, [&](const Figure& figure) {
        pack.number(static_cast<std::int64_t>(figure.kind));
        for (const float value : {figure.from.x, figure.from.y, figure.to.x, figure.to.y, figure.radius})
            pack.real(value);
        pack.number(figure.colour);
        pack.number(figure.filled ? 1 : 0);
    });
    // The picture itself, by runs of one colour.
    std::vector<std::pair<std::int64_t, Colour>> runs;
    for (const Colour pixel : pixels_) {
        if (runs.empty() || runs.back().second != pixel) runs.emplace_back(0, pixel);
        ++runs.back().first;
    }
    pack.list(runs, [&](const auto& run) {
        pack.number(run.first);
        pack.number(run.second);
    });
}

Picture Picture::read(PackReader& pack) {
    Picture picture;
    picture.count_ = static_cast<std::size_t>(pack.number());
    pack.list(picture.figures_, [&] {
        Figure figure;
        figure.kind = pack.choice(Figure::Kind::Circle);
        for (float* const value : {&figure.from.x, &figure.from.y, &figure.to.x, &figure.to.y, &figure.radius})
            *value = static_cast<float>(pack.real());
        figure.colour = static_cast<Colour>(pack.number()) & 0xFFFFFF;
        figure.filled = pack.number() != 0;
        return figure;
    });
    const std::size_t size = std::size_t{displayWidth} * displayHeight;
    std::vector<int> runs;  // none is kept: each is painted at once
    pack.list(runs, [&] {
        const auto length = static_cast<std::uint64_t>(pack.number());
        const auto colour = static_cast<Colour>(pack.number()) & 0xFFFFFF;
        picture.pixels_.insert(picture.pixels_.end(), std::min<std::uint64_t>(length, size - picture.pixels_.size()),
                               colour);
        return 0;
    });
    if (!picture.pixels_.empty()) picture.pixels_.resize(size, displayBackground);
    return picture;
}

}  // namespace tolvan::classroom
