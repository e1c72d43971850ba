// What the two text panes have in common: one line of the pane for each line of the text, of the same height in both,
// and places counted in 8-bit characters of the text, whose lines are separated by CR LF.
//
// A pane has no menu of its own; it asks for one with customContextMenuRequested.
#pragma once

#include "editor/panes/PaneFonts.h"

#include <QPlainTextEdit>
#include <QTextCursor>

#include <cstddef>
#include <map>

namespace tolvan {

class EvenLines;

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

    // Scrolls sideways until a place is in view: a column (from 0) of a line (from 1).
    void showColumn(int line, std::size_t column);

    std::size_t textSize() const;
    int lineCount() const { return blockCount(); }

    // The line of the caret, from 1.
    int currentLine() const;

    // Percent of the opening size.
    void setZoom(int percent);
    const PaneFonts& paneFonts() const { return fonts_; }

    // The line (from 1) that stands on a band of its own colour; 0: none.
    void setMarkedLine(int line);
    int markedLine() const { return markedLine_; }

    // The line (from 1) that a program is about to run, on a band of its own; 0: none.
    void setStepLine(int line);
    int stepLine() const { return stepLine_; }
    // Scrolls up or down until the line is in view.
    void showLine(int line);

    // Lines at which a program is to stand still, and at which of their passes; 0: at each.
    void setBreakPoints(std::map<int, int> lines);
    const std::map<int, int>& breakPoints() const { return breakPoints_; }

    // Lights up so many characters before the caret for a moment.
    void flash(std::size_t length);

    // Marks beside lines (from 1), for whatever stands there.
    enum class LineMark { Advice, Error };
    void setLineMarks(std::map<int, LineMark> marks);
    const std::map<int, LineMark>& lineMarks() const { return lineMarks_; }

    // Room left of the text for something that is drawn there, and where the lines are that stand beside it: the first
    // visible one (from 1), its top, and the height and base line of each. Logical pixels of the viewport.
    void setLeftMargin(int width);
    int firstVisibleLine() const;
    qreal firstVisibleTop() const;
    qreal lineHeight() const { return fonts_.lineHeight; }
    qreal baseLine() const { return fonts_.baseLine; }

  signals:
    // After every movement of the caret, by keys, mouse or a change of the text.
    void caretMoved();
    void zoomChanged();
    void markedLineChanged(int before, int now);
    void lineMarksChanged();
    void stepLineChanged(int before, int now);
    // The margin was clicked beside a line.
    void marginClicked(int line, Qt::KeyboardModifiers modifiers);
    // The colours of the windows are others now.
    void lookChanged();

  protected:
    virtual void applyFonts(const PaneFonts& fonts) = 0;
    void changeEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    std::size_t bytePosition(int documentPosition) const;
    int documentPosition(std::size_t bytePosition) const;
    QPointF onLetters(QPointF place) const;
    QRect lineBand(int line) const;
    void paintFlash();
    void paintStepLine();
    void paintFocus();

    EvenLines* lines_;  // owned by the document
    PaneFonts fonts_;
    int markedLine_ = 0;
    int stepLine_ = 0;
    std::map<int, int> breakPoints_;
    std::map<int, LineMark> lineMarks_;
    QTextCursor flashed_;  // its selection; none: nothing is lit
};

}  // namespace tolvan
