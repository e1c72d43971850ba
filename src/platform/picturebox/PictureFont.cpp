#include "platform/picturebox/PictureFont.h"

#include "platform/fonts/FontEncoding.h"

#include <QFontMetricsF>
#include <QImage>
#include <QPainter>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

namespace tolvan {
namespace {

// Four screens of text in distinct runs; a program that prints ever new lines does not fill the memory.
constexpr std::size_t keptBytes = 8U << 20U;
constexpr int widestPicture = 16384;
// Room for parts of letters that reach out of their line or stand before its start; a part of the line's height.
constexpr int marginPart = 4;

// The part of a grey picture that is not black.
Coverage coverageOf(const QImage& picture, int originX, int originY) {
    int left = picture.width(), right = -1, top = picture.height(), bottom = -1;
    for (int y = 0; y < picture.height(); ++y) {
        const uchar* line = picture.constScanLine(y);
        const uchar* end = line + picture.width();
        const uchar* first = std::find_if(line, end, [](uchar value) { return value != 0; });
        if (first == end) continue;
        const uchar* last = end;
        while (*--last == 0) {
        }
        left = std::min(left, static_cast<int>(first - line));
        right = std::max(right, static_cast<int>(last - line));
        top = std::min(top, y);
        bottom = y;
    }
    Coverage coverage;
    if (right < left) return coverage;
    coverage.left = left - originX;
    coverage.top = top - originY;
    coverage.width = right - left + 1;
    coverage.height = bottom - top + 1;
    for (int y = top; y <= bottom; ++y) {
        const uchar* line = picture.constScanLine(y);
        coverage.values.insert(coverage.values.end(), line + left, line + right + 1);
    }
    return coverage;
}

}  // namespace

void PictureFont::forget() {
    runs_.clear();
    bytes_ = 0;
}

double PictureFont::baseline() const {
    return baseline_ ? *baseline_ : QFontMetricsF(font_).ascent();
}

void PictureFont::setBaseline(double logicalPixels) {
    baseline_ = logicalPixels;
    pixelRatio_ = 0;
}

void PictureFont::usePixelRatio(double pixelRatio) {
    if (pixelRatio == pixelRatio_) return;
    forget();
    pixelRatio_ = pixelRatio;
    const QFontMetricsF metrics(font_);
    // A line that starts half a pixel down is drawn a whole one down; its letters are not to.
    ascent_ = static_cast<int>(std::ceil(baseline() * pixelRatio - 0.5));
    lineHeight_ = static_cast<int>(std::ceil((metrics.ascent() + metrics.descent()) * pixelRatio));
}

int PictureFont::lineHeight(double pixelRatio) {
    usePixelRatio(pixelRatio);
    return lineHeight_;
}

std::size_t PictureFont::firstPiece(std::string_view text) {
    constexpr std::string_view digits = "0123456789";
    return std::clamp<std::size_t>(text.find_first_of(digits), 1, text.size());
}

const PictureFont::Run& PictureFont::run(std::string_view text, double pixelRatio) {
    usePixelRatio(pixelRatio);
    if (const auto found = runs_.find(text); found != runs_.end()) return found->second;
    if (bytes_ > keptBytes) forget();
    Run drawn = draw(text);
    bytes_ += drawn.coverage.values.size() + text.size() + sizeof(Run);
    return runs_.emplace(text, std::move(drawn)).first->second;
}

std::vector<double> PictureFont::edges(std::string_view text, double pixelRatio) {
    std::vector<double> edges;
    double start = 0;
    while (!text.empty()) {
        const std::string_view piece = text.substr(0, firstPiece(text));
        const std::unique_ptr<QTextLayout> layout = layOut(piece);
        const QTextLine line = layout->lineAt(0);
        for (int i = 0; i < static_cast<int>(piece.size()); ++i)
            edges.push_back(start + line.cursorToX(i) * pixelRatio);
        start += line.horizontalAdvance() * pixelRatio;
        text.remove_prefix(piece.size());
    }
    edges.push_back(start);
    return edges;
}

// In one line.
std::unique_ptr<QTextLayout> PictureFont::layOut(std::string_view text) const {
    QTextOption oneLine;
    oneLine.setWrapMode(QTextOption::NoWrap);
    oneLine.setFlags(QTextOption::IncludeTrailingSpaces);
    oneLine.setTextDirection(Qt::LeftToRight);
    auto layout = std::make_unique<QTextLayout>(toQString(text), font_);
    layout->setTextOption(oneLine);
    layout->beginLayout();
    layout->createLine();
    layout->endLayout();
    return layout;
}

PictureFont::Run PictureFont::draw(std::string_view text) const {
    const std::unique_ptr<QTextLayout> layout = layOut(text);
    const QTextLine line = layout->lineAt(0);
    Run run;
    if (!line.isValid()) return run;
    run.advance = line.horizontalAdvance() * pixelRatio_;
    const int width = static_cast<int>(std::min(std::ceil(run.advance), double{widestPicture}));
    const int margin = lineHeight_ / marginPart;
    QImage picture(width + 2 * margin, lineHeight_ + 2 * margin, QImage::Format_Grayscale8);
    picture.fill(0);
    QPainter painter(&picture);
    painter.setPen(Qt::white);
    painter.scale(pixelRatio_, pixelRatio_);
    layout->draw(&painter, QPointF(margin / pixelRatio_, (margin + ascent_) / pixelRatio_ - line.ascent()));
    painter.end();
    run.coverage = coverageOf(picture, margin, margin);
    return run;
}

}  // namespace tolvan
