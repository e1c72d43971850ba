#include "editor/panes/TextPane.h"

#include <QTextBlock>

#include <algorithm>

namespace tolvan {
namespace {

// A line end is one character of the document and two of the text.
std::size_t startOf(const QTextBlock& line) {
    return static_cast<std::size_t>(line.position()) + static_cast<std::size_t>(line.blockNumber());
}

}  // namespace

TextPane::TextPane(QWidget* parent) : QPlainTextEdit(parent) {
    setLineWrapMode(NoWrap);
    connect(this, &QPlainTextEdit::cursorPositionChanged, this, &TextPane::caretMoved);
}

std::size_t TextPane::bytePosition(const QTextCursor& cursor, int documentPosition) {
    const QTextBlock line = cursor.document()->findBlock(documentPosition);
    return static_cast<std::size_t>(documentPosition) + static_cast<std::size_t>(line.blockNumber());
}

int TextPane::documentPosition(std::size_t bytePosition) const {
    int first = 0;
    int behind = blockCount();
    while (behind - first > 1) {
        const int middle = first + (behind - first) / 2;
        (startOf(document()->findBlockByNumber(middle)) <= bytePosition ? first : behind) = middle;
    }
    const QTextBlock line = document()->findBlockByNumber(first);
    const std::size_t column = std::min(bytePosition - startOf(line), static_cast<std::size_t>(line.length() - 1));
    return line.position() + static_cast<int>(column);
}

std::size_t TextPane::caret() const {
    const QTextCursor cursor = textCursor();
    return bytePosition(cursor, cursor.position());
}

std::size_t TextPane::selectionStart() const {
    const QTextCursor cursor = textCursor();
    return bytePosition(cursor, cursor.selectionStart());
}

std::size_t TextPane::selectionLength() const {
    const QTextCursor cursor = textCursor();
    return bytePosition(cursor, cursor.selectionEnd()) - bytePosition(cursor, cursor.selectionStart());
}

void TextPane::select(std::size_t start, std::size_t length) {
    const std::size_t size = textSize();
    start = std::min(start, size);
    QTextCursor cursor = textCursor();
    cursor.setPosition(documentPosition(start));
    cursor.setPosition(documentPosition(start + std::min(length, size - start)), QTextCursor::KeepAnchor);
    setTextCursor(cursor);
    ensureCursorVisible();
}

std::size_t TextPane::textSize() const {
    const QTextBlock last = document()->lastBlock();
    return startOf(last) + static_cast<std::size_t>(last.length() - 1);
}

int TextPane::currentLine() const {
    return textCursor().blockNumber() + 1;
}

}  // namespace tolvan
