#include "editor/panes/EvenLines.h"

#include <QTextBlock>
#include <QTextLayout>

namespace tolvan {

void EvenLines::setLine(qreal height, qreal baseLine) {
    height_ = height;
    baseLine_ = baseLine;
    requestUpdate();
}

QRectF EvenLines::blockBoundingRect(const QTextBlock& block) const {
    if (!block.isValid()) return {};
    block.layout()->setCacheEnabled(true);                             // or every painting shapes the letters again
    QRectF rect = QPlainTextDocumentLayout::blockBoundingRect(block);  // lays the block out
    QTextLine line = block.layout()->lineAt(0);
    if (line.isValid()) line.setPosition({line.x(), baseLine_ - line.ascent()});
    rect.setHeight(height_ + (block.next().isValid() ? 0 : document()->documentMargin()));
    return rect;
}

}  // namespace tolvan
