#include "editor/steps/Cells.h"

#include "dialogs/Look.h"
#include "platform/richtext/InternalText.h"

#include <QPainter>

namespace tolvan {
namespace {

constexpr double rowHeight = 1.8;  // em
constexpr double padding = 0.5;

ControlText textOf(const QModelIndex& index) {
    const QByteArray text = index.data(InternalTextRole).toByteArray();
    ControlText shown = controlTextOf({text.constData(), static_cast<std::size_t>(text.size())});
    if (index.data(ChangedRole).toBool()) embolden(shown, 0, static_cast<std::size_t>(shown.text.size()));
    return shown;
}

}  // namespace

StyledText lineOfInternalText(std::string_view internalText) {
    return styledText(internalText.substr(0, internalText.find_first_of("\r\n")));
}

ControlText controlTextOf(std::string_view internalText) {
    return controlText(lineOfInternalText(internalText));
}

QSize CellDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex& index) const {
    constexpr double widest = 24;
    const int width = static_cast<int>(styledLineSize(textOf(index)).width()) + look::em(2 * padding + 0.2);
    return {std::min(width, look::em(widest)), look::em(rowHeight)};
}

void CellDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    const bool isChosen = (option.state & QStyle::State_Selected) != 0;
    if (ground_ == Ground::Board)
        paintOnBoard(*painter, option.rect, isChosen, index);
    else
        paintOnPaper(*painter, option.rect, isChosen, index);
    if ((option.state & QStyle::State_HasFocus) == 0) return;
    painter->setPen(QPen(ground_ == Ground::Board ? look::colours().newChalk : look::colours().focus, 2));
    painter->setBrush(Qt::NoBrush);
    painter->drawRect(option.rect.adjusted(1, 1, -1, -1));
}

void CellDelegate::paintOnPaper(QPainter& painter, const QRectF& cell, bool isChosen, const QModelIndex& index) const {
    const look::Colours& colours = look::colours();
    if (index.data(ChangedRole).toBool())
        painter.fillRect(cell, colours.stepLine);
    else if (isChosen)
        painter.fillRect(cell, colours.accentLight);
    const bool isDim = index.data(DimRole).toBool() && !isChosen;
    drawStyledLine(painter, cell.adjusted(look::em(padding), 0, -look::em(0.2), 0), textOf(index),
                   isDim ? colours.dimText : colours.text);
}

// As with chalk: what is new is brighter, and underlined by hand.
void CellDelegate::paintOnBoard(QPainter& painter, const QRectF& cell, bool isChosen, const QModelIndex& index) const {
    const look::Colours& colours = look::colours();
    painter.fillRect(cell, isChosen ? colours.boardChosen : colours.board);
    painter.fillRect(QRectF(cell.right() - 1, cell.top(), 1, cell.height()), colours.boardLine);
    painter.fillRect(QRectF(cell.left(), cell.bottom() - 1, cell.width(), 1), colours.boardLine);
    const bool isChanged = index.data(ChangedRole).toBool();
    const ControlText text = textOf(index);
    const QRectF area = cell.adjusted(look::em(padding), 0, -look::em(0.2), 0);
    drawStyledLine(painter, area, text,
                   isChanged                      ? colours.newChalk
                   : index.data(DimRole).toBool() ? colours.dimChalk
                                                  : colours.chalk);
    if (!isChanged) return;
    const qreal width = std::min(area.width(), std::max<qreal>(styledLineSize(text).width(), look::em(0.8)));
    const qreal y = cell.center().y() + look::devanagariBodyHeight() / 2.0 + look::em(0.25);
    painter.fillRect(QRectF(area.left(), y, width, std::max(1, look::em(0.1))), colours.newChalk);
}

}  // namespace tolvan
