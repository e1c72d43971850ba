// Keeps the Devanagari pane equal to the program text of the Roman pane while the user types.
#pragma once

#include "editor/panes/ProgramLines.h"

#include <QObject>

#include <string>

namespace tolvan {

class ProgramBox;
class RomanBox;

class RomanInput : public QObject {
    Q_OBJECT
  public:
    // Both must outlive it. What the Roman box already holds is shown at once.
    RomanInput(RomanBox& roman, ProgramBox& program);

    // Whether what is typed at the caret goes into a "#" span.
    bool caretIsInSpan() const;

    // A word on the line of the caret that stands for nothing in the program; empty if there is none.
    std::string leftOut() const;

    const ProgramLines& lines() const { return lines_; }

  signals:
    // The lines of the program are up to date: these took the place of so many.
    void linesReplaced(std::size_t first, std::size_t removed, std::size_t added);
    // After every change of the Roman text; the Devanagari pane shows it already.
    void programChanged();

  private:
    void update(int position, int removed, int added);

    RomanBox& roman_;
    ProgramBox& program_;
    ProgramLines lines_;
};

}  // namespace tolvan
