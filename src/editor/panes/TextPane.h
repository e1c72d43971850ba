// What the two text panes have in common: one line of the pane for each line of the text, never broken, and places
// counted in 8-bit characters of the text, whose lines are parted by CR LF.
#pragma once

#include <QPlainTextEdit>

#include <cstddef>

namespace tolvan {

class TextPane : public QPlainTextEdit {
    Q_OBJECT
  public:
    explicit TextPane(QWidget* parent = nullptr);

    // Positions are from 0; CR and LF count as one each. The caret stands at the end of a selection made here.
    std::size_t caret() const;
    std::size_t selectionStart() const;
    std::size_t selectionLength() const;

    // Selects and brings into view; with length 0 it moves the caret. What reaches beyond the text ends with it. A
    // position between CR and LF is taken for the one before them.
    void select(std::size_t start, std::size_t length);

    std::size_t textSize() const;
    int lineCount() const { return blockCount(); }

    // The line of the caret, from 1.
    int currentLine() const;

  signals:
    // After every movement of the caret, by keys, mouse or a change of the text.
    void caretMoved();

  protected:
    static std::size_t bytePosition(const QTextCursor& cursor, int documentPosition);
    int documentPosition(std::size_t bytePosition) const;
};

}  // namespace tolvan
