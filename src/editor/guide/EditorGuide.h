// The guide in the editor: what it finds while the user types is marked in the panes and listed in the panel, and can
// be mended from there.
#pragma once

#include "editor/guide/FindingMarks.h"
#include "editor/guide/FindingWatch.h"

#include <QObject>

#include <optional>
#include <string_view>

namespace tolvan {

class ProblemPanel;

class EditorGuide : public QObject {
    Q_OBJECT
  public:
    // All must outlive it.
    EditorGuide(RomanBox& roman, ProgramBox& program, const RomanInput& input, ProblemPanel& panel);

    void setEnabled(bool enabled) { watch_.setEnabled(enabled); }

    // For the start of a run: shows findings in the line that is being typed, too.
    void checkNow() { watch_.checkNow(); }

    // How the last run failed: above the list and at its place, until it is taken away with nothing.
    void setRunFailure(const std::optional<guide::RunFailure>& failure);

    // Goes to the next place of the list.
    void goToNext();

    // Makes the best correction of the finding at the caret, else of the one chosen in the panel, as one step of undo.
    void mend();

    // What F1 explains: the kind of the finding at the caret, else guide::failedRun if that is chosen in the panel;
    // empty if there is nothing.
    std::string_view currentKind() const;

  signals:
    // What is said at the caret, for the status bar; empty where nothing is.
    void saidAtCaret(const StyledText& text);

  private:
    void show();
    void followCaret();
    void goTo(std::size_t line, guide::Columns place);
    void mendChosen(std::size_t correction);
    void make(const guide::Correction* correction);

    RomanBox& roman_;
    ProblemPanel& panel_;
    FindingWatch watch_;
    FindingMarks marks_;
};

}  // namespace tolvan
