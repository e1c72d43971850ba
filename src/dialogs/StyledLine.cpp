#include "dialogs/StyledLine.h"

#include "dialogs/Look.h"
#include "platform/fonts/FontEncoding.h"

#include <QColor>
#include <QPainter>
#include <QTextOption>

#include <algorithm>
#include <cmath>

namespace tolvan {
namespace {

constexpr qreal unlimited = 1e6;

QTextLayout::FormatRange formatRange(qsizetype start, qsizetype length, Font font) {
    QTextCharFormat format;
    format.setFont(look::controlFont(font));
    return {static_cast<int>(start), static_cast<int>(length), format};
}

void layOut(QTextLayout& layout, const ControlText& text, qreal width) {
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAnywhere);  // so that the line ends where the width does
    layout.setTextOption(option);
    layout.setText(text.text);
    layout.setFormats(text.formats);
    layout.beginLayout();
    QTextLine line = layout.createLine();
    if (line.isValid()) line.setLineWidth(width);
    layout.endLayout();
}

ControlText shortened(const ControlText& text, qreal width) {
    const ControlText ellipsis = controlText({}, QStringLiteral("\u2026"));
    QTextLayout layout;
    layOut(layout, text, width - styledLineSize(ellipsis).width());
    const int kept = layout.lineAt(0).textLength();
    ControlText result{text.text.left(kept) + ellipsis.text, {}};
    for (const auto& range : text.formats)
        if (range.start < kept)
            result.formats.append({range.start, std::min(range.length, kept - range.start), range.format});
    result.formats.append(formatRange(kept, ellipsis.text.size(), Font::Latin));
    return result;
}

}  // namespace

ControlText controlText(StyledView text, const QString& name) {
    ControlText result{toQString(text.text()) + name, {}};
    for (std::size_t start = 0, end = 0; start < text.size(); start = end) {
        while (end < text.size() && text.font(end) == text.font(start)) ++end;
        result.formats.append(
            formatRange(static_cast<qsizetype>(start), static_cast<qsizetype>(end - start), text.font(start)));
    }
    if (!name.isEmpty())
        result.formats.append(formatRange(static_cast<qsizetype>(text.size()), name.size(), Font::Latin));
    return result;
}

// A format after the others adds to them.
void embolden(ControlText& text, std::size_t start, std::size_t length) {
    QTextCharFormat bold;
    bold.setFontWeight(QFont::Bold);
    text.formats.append({static_cast<int>(start), static_cast<int>(length), bold});
}

QSizeF styledLineSize(const ControlText& text) {
    if (text.text.isEmpty()) return {};
    QTextLayout layout;
    layOut(layout, text, unlimited);
    return {layout.lineAt(0).naturalTextWidth(), layout.lineAt(0).height()};
}

void drawStyledLine(QPainter& painter, const QRectF& area, const ControlText& text, const QColor& colour) {
    if (text.text.isEmpty() || area.width() <= 0) return;
    QTextLayout layout;
    layOut(layout, text, unlimited);
    if (layout.lineAt(0).naturalTextWidth() > area.width()) layOut(layout, shortened(text, area.width()), unlimited);
    painter.save();
    painter.setClipRect(area, Qt::IntersectClip);
    painter.setPen(colour);
    const double baseLine = area.center().y() + look::devanagariBodyHeight() / 2.0;
    layout.draw(&painter, {area.left(), std::round(baseLine - layout.lineAt(0).ascent())});
    painter.restore();
}

}  // namespace tolvan
