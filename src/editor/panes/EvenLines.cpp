#include "editor/panes/EvenLines.h"

#include <QTextBlock>
#include <QTextLayout>

#include <algorithm>

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

void EvenLines::documentChanged(int from, int, int added) {
    // The same edit may have taken something from the start of the line after it.
    const QTextBlock next = document()->findBlock(from + added);
    if (next.isValid() && next.position() == from + added) {
        const QTextLine laidOut = next.layout()->lineAt(0);
        if (!laidOut.isValid() || laidOut.textLength() != next.length() - 1) {
            next.layout()->clearLayout();
            emit updateBlock(next);
        }
    }
    QPlainTextDocumentLayout::documentChanged(from, 0, std::max(added, 1));
}

}  // namespace tolvan
