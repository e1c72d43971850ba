// Shows a program text: Devanagari words in "Sanskrit 1.2", Latin text in "Times New Roman". It is only read: text can
// be selected and copied, as Unicode and with its colours, by keys of its own, not by the commands of its window.
#pragma once

#include "editor/panes/ColourRun.h"
#include "editor/panes/ProgramLines.h"
#include "editor/panes/TextPane.h"

#include <QTextCharFormat>

#include <functional>
#include <vector>

class QTextBlock;

namespace tolvan {

class ProgramBox : public TextPane {
    Q_OBJECT
  public:
    // The colours of a line, runs in ascending order; what they leave out has the colour of text.
    using Colouring = std::function<std::vector<ColourRun>(StyledView)>;

    explicit ProgramBox(QWidget* parent = nullptr);

    // Lines are separated by CR LF.
    void setText(StyledView text);
    StyledText text() const;

    // Brings the text up to date.
    void replaceLines(const ProgramLinesUpdate& update);

    void setColouring(Colouring colouring);
    // Colours again the lines that hold this font-encoded text, for which the colouring may give another answer now.
    void colourLinesWith(std::string_view text);

    // In Unicode, lines separated by line feeds; and the places in it that correspond to those of the document.
    QString unicodeText() const;
    int unicodePosition(int documentPosition) const;
    int documentPositionOf(int unicodePosition) const;

    // The Devanagari word at the caret, empty if there is none.
    std::string wordAtCaret() const;

    std::vector<ColourRun> coloursOf(StyledView line) const;

    // From 0; null where nothing was ever shown.
    const ProgramLine* line(int number) const;

  signals:
    // This line (from 0) has been coloured, perhaps otherwise than before.
    void lineColoured(int number);
    // With the left button of the mouse, without selecting anything; the caret is where that was.
    void clicked();

  protected:
    bool event(QEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void applyFonts(const PaneFonts& fonts) override;
    QMimeData* createMimeDataFromSelection() const override;

  private:
    void addUnicode(StyledView line, std::size_t from, std::size_t to, QString& plain, QString& html) const;
    void format(const QTextBlock& block);
    void formatAll();

    Colouring colouring_;
    QTextCharFormat latin_;
};

}  // namespace tolvan
