#include "platform/picturebox/PixelSurface.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tolvan {
namespace {

// The whole numbers from `first` to `last` that are indexes of something with `size` elements. Not a number gives none.
struct Range {
    int first = 0;
    int last = -1;

    Range(double from, double to, int size) {
        if (!(from <= to) || to < 0 || from > size - 1) return;
        first = static_cast<int>(std::max(from, 0.0));
        last = static_cast<int>(std::min(to, size - 1.0));
    }
};

double nearest(double value) {
    return std::floor(value + 0.5);
}

Pixel blend(Pixel below, Pixel above, std::uint32_t share) {
    // Red and blue together, then green: each product needs 16 bits. The share counts to 256.
    const std::uint32_t rest = 256 - share;
    const std::uint32_t redBlue = ((below & 0xFF00FFU) * rest + (above & 0xFF00FFU) * share) >> 8;
    const std::uint32_t green = ((below & 0x00FF00U) * rest + (above & 0x00FF00U) * share) >> 8;
    return 0xFF000000U | (redBlue & 0xFF00FFU) | (green & 0x00FF00U);
}

}  // namespace

PixelSurface::PixelSurface(int width, int height, Pixel background)
    : width_(std::max(width, 1)),
      height_(std::max(height, 1)),
      background_(background),
      pixels_(static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_), background) {}

std::size_t PixelSurface::offset(int y) const {
    const int line = y + top_ < height_ ? y + top_ : y + top_ - height_;
    return static_cast<std::size_t>(line) * static_cast<std::size_t>(width_);
}

int PixelSurface::rowsInOnePiece(int y) const {
    return y + top_ < height_ ? height_ - top_ - y : height_ - y;
}

void PixelSurface::resize(int width, int height) {
    PixelSurface resized(width, height, background_);
    for (int y = 0; y < std::min(height_, resized.height_); ++y)
        std::copy_n(row(y), std::min(width_, resized.width_), resized.row(y));
    *this = std::move(resized);
}

void PixelSurface::clear() {
    std::fill(pixels_.begin(), pixels_.end(), background_);
}

void PixelSurface::fillRow(int y, int left, int right, Pixel colour) {
    std::fill(row(y) + left, row(y) + right + 1, colour);
}

void PixelSurface::fillRectangle(double left, double top, double right, double bottom, Pixel colour) {
    const Range columns(left, right, width_);
    if (columns.last < columns.first) return;
    const Range rows(top, bottom, height_);
    for (int y = rows.first; y <= rows.last; ++y) fillRow(y, columns.first, columns.last, colour);
}

void PixelSurface::drawPen(double x, double y, int pen, Pixel colour) {
    if (pen > 1) {
        fillRectangle(x, y, x + pen - 1, y + pen - 1, colour);
    } else if (x >= 0 && x < width_ && y >= 0 && y < height_) {
        row(static_cast<int>(y))[static_cast<int>(x)] = colour;
    }
}

// Every pixel follows from the two ends alone, so that a line is the same whatever part of it can be seen, and the same
// drawn backwards.
void PixelSurface::drawLine(double x1, double y1, double x2, double y2, int pen, Pixel colour) {
    const bool steep = std::abs(y2 - y1) > std::abs(x2 - x1);
    if (steep ? y1 > y2 : x1 > x2) {
        std::swap(x1, x2);
        std::swap(y1, y2);
    }
    if (x1 == x2 || y1 == y2) {
        fillRectangle(x1, std::min(y1, y2), x2 + pen - 1, std::max(y1, y2) + pen - 1, colour);
    } else if (steep) {
        const double slope = (x2 - x1) / (y2 - y1);
        const Range rows(y1 + pen - 1, y2 + pen - 1, height_ + pen - 1);
        for (double y = rows.first - pen + 1.0; y <= rows.last - pen + 1.0; ++y)
            drawPen(nearest(x1 + (y - y1) * slope), y, pen, colour);
    } else {
        const double slope = (y2 - y1) / (x2 - x1);
        const Range columns(x1 + pen - 1, x2 + pen - 1, width_ + pen - 1);
        for (double x = columns.first - pen + 1.0; x <= columns.last - pen + 1.0; ++x)
            drawPen(x, nearest(y1 + (x - x1) * slope), pen, colour);
    }
}

// The circle in the parts that are steeper than 45 degrees has one pixel in each row, in the others one in each column.
void PixelSurface::drawCircle(double x, double y, double radius, int pen, Pixel colour) {
    const double part = std::ceil(radius * std::sqrt(0.5));
    const auto distance = [radius](double along) {
        return nearest(std::sqrt(std::max((radius - along) * (radius + along), 0.0)));
    };
    const Range rows(y - part + pen - 1, y + part + pen - 1, height_ + pen - 1);
    for (double at = rows.first - pen + 1.0; at <= rows.last - pen + 1.0; ++at) {
        drawPen(x - distance(at - y), at, pen, colour);
        drawPen(x + distance(at - y), at, pen, colour);
    }
    const Range columns(x - part + pen - 1, x + part + pen - 1, width_ + pen - 1);
    for (double at = columns.first - pen + 1.0; at <= columns.last - pen + 1.0; ++at) {
        drawPen(at, y - distance(at - x), pen, colour);
        drawPen(at, y + distance(at - x), pen, colour);
    }
}

void PixelSurface::fillCircle(double x, double y, double radius, int pen, Pixel colour) {
    const double reach = nearest(radius);
    const Range rows(y - reach, y + reach + pen - 1, height_);
    for (int at = rows.first; at <= rows.last; ++at) {
        // The pen makes the lower half start `pen - 1` rows further down.
        const double above = at < y ? y - at : std::max(at - pen + 1 - y, 0.0);
        const double half = nearest(std::sqrt(std::max((radius - above) * (radius + above), 0.0)));
        const Range columns(x - half, x + half + pen - 1, width_);
        if (columns.first <= columns.last) fillRow(at, columns.first, columns.last, colour);
    }
    drawCircle(x, y, radius, pen, colour);
}

void PixelSurface::drawText(const Coverage& text, double x, double y, Pixel colour) {
    const double left = x + text.left;
    const double top = y + text.top;
    const Range columns(left, left + text.width - 1, width_);
    if (columns.last < columns.first) return;
    const Range rows(top, top + text.height - 1, height_);
    for (int at = rows.first; at <= rows.last; ++at) {
        const std::uint8_t* value =
            &text.values[static_cast<std::size_t>(at - top) * static_cast<std::size_t>(text.width)];
        value += static_cast<std::size_t>(columns.first - left);
        Pixel* pixel = row(at) + columns.first;
        for (int column = columns.first; column <= columns.last; ++column, ++value, ++pixel)
            if (*value != 0) *pixel = blend(*pixel, colour, *value + 1U);
    }
}

void PixelSurface::scrollUp(int rows) {
    if (rows >= height_) return clear();
    top_ = (top_ + rows) % height_;
    for (int y = height_ - rows; y < height_; ++y) fillRow(y, 0, width_ - 1, background_);
}

}  // namespace tolvan
