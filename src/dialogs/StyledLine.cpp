#include "dialogs/StyledLine.h"

#include "dialogs/Look.h"
#include "platform/fonts/FontEncoding.h"

#include <QColor>
#include <QPainter>
#include <QTextOption>

#include <cmath>

namespace tolvan {
namespace {

constexpr qreal unlimited = 1e6;

void layOut(QTextLayout& layout, StyledView text, qreal width) {
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAnywhere);  // so that the line ends where the width does
    layout.setTextOption(option);
    layout.setText(toQString(text.text()));
    layout.setFormats(controlFormats(text));
    layout.beginLayout();
    QTextLine line = layout.createLine();
    if (line.isValid()) line.setLineWidth(width);
    layout.endLayout();
}

StyledText shortened(StyledView text, qreal width) {
    const StyledText ellipsis("\x85", Font::Latin);
    QTextLayout layout;
    layOut(layout, text, width - styledLineSize(ellipsis).width());
    StyledText result(text.substr(0, static_cast<std::size_t>(layout.lineAt(0).textLength())));
    result.append(ellipsis);
    return result;
}

}  // namespace

QList<QTextLayout::FormatRange> controlFormats(StyledView text) {
    QList<QTextLayout::FormatRange> formats;
    for (std::size_t start = 0, end = 0; start < text.size(); start = end) {
        while (end < text.size() && text.font(end) == text.font(start)) ++end;
        QTextCharFormat format;
        format.setFont(look::controlFont(text.font(start)));
        formats.append({static_cast<int>(start), static_cast<int>(end - start), format});
    }
    return formats;
}

QSizeF styledLineSize(StyledView text) {
    if (text.empty()) return {};
    QTextLayout layout;
    layOut(layout, text, unlimited);
    return {layout.lineAt(0).naturalTextWidth(), layout.lineAt(0).height()};
}

void drawStyledLine(QPainter& painter, const QRectF& area, StyledView text, const QColor& colour) {
    if (text.empty() || area.width() <= 0) return;
    const StyledText fitting =
        styledLineSize(text).width() > area.width() ? shortened(text, area.width()) : StyledText(text);
    QTextLayout layout;
    layOut(layout, fitting, unlimited);
    painter.save();
    painter.setClipRect(area, Qt::IntersectClip);
    painter.setPen(colour);
    const double baseLine = area.center().y() + look::devanagariBodyHeight() / 2.0;
    layout.draw(&painter, {area.left(), std::round(baseLine - layout.lineAt(0).ascent())});
    painter.restore();
}

}  // namespace tolvan
