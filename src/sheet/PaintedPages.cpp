#include "sheet/PaintedPages.h"

#include "platform/fonts/FontEncoding.h"
#include "platform/fonts/Fonts.h"
#include "platform/richtext/Letters.h"

#include <QPainter>

#include <algorithm>

namespace tolvan {
namespace {

constexpr int outlineSize = 1000;  // pixels

QPainterPath outlineOf(StyledView letter) {
    QFont font = qtFont(letter.font(0));
    font.setPixelSize(outlineSize);
    font.setHintingPreference(QFont::PreferNoHinting);
    QPainterPath outline;
    outline.addText(0, 0, font, toQString(letter.text()));
    return outline;
}

}  // namespace

void PaintedPages::newPage() {
    pages_.emplace_back();
    current_ = pages_.size() - 1;
}

void PaintedPages::drawText(QPointF baseline, StyledView text, double points, QColor colour) {
    QPainterPath outlines;
    const QTransform toSize = QTransform::fromScale(points / outlineSize, points / outlineSize);
    outlines.setFillRule(Qt::WindingFill);
    for (const StyledView letter : lettersOf(text))
        for (std::size_t i = 0; i < letter.size();) {
            std::size_t end = i + 1;
            while (end < letter.size() && letter.font(end) == letter.font(i)) ++end;
            const StyledView piece = letter.substr(i, end - i);
            outlines.addPath(toSize.map(outlineOf(piece)).translated(baseline));
            baseline.rx() += width(piece, points);
            i = end;
        }
    pages_[current_].emplace_back([outlines, colour](QPainter& painter) { painter.fillPath(outlines, colour); });
}

void PaintedPages::fillRectangle(const QRectF& area, QColor colour) {
    pages_[current_].emplace_back([area, colour](QPainter& painter) { painter.fillRect(area, colour); });
}

void PaintedPages::drawImage(const QRectF& area, const QImage& image) {
    pages_[current_].emplace_back([area, image](QPainter& painter) { painter.drawImage(area, image); });
}

void PaintedPages::paint(int page, QPainter& painter, QSizeF paper, double unitsPerPoint) const {
    const double scale = std::min({unitsPerPoint, paper.width() / size_.width(), paper.height() / size_.height()});
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.translate((paper.width() - scale * size_.width()) / 2, (paper.height() - scale * size_.height()) / 2);
    painter.scale(scale, scale);
    for (const Drawing& draw : pages_[static_cast<std::size_t>(page) - 1]) draw(painter);
    painter.restore();
}

}  // namespace tolvan
