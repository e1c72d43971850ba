#include "editor/guide/EditorGuide.h"

#include "editor/guide/ProblemPanel.h"
#include "editor/panes/RomanBox.h"
#include "guide/HelpTopics.h"

#include <QTextBlock>

namespace tolvan {

EditorGuide::EditorGuide(RomanBox& roman, ProgramBox& program, const RomanInput& input, ProblemPanel& panel)
    : roman_(roman), panel_(panel), watch_(roman, input), marks_(roman, program, input) {
    connect(&watch_, &FindingWatch::findingsChanged, this, &EditorGuide::show);
    connect(&roman, &RomanBox::caretMoved, this, &EditorGuide::followCaret);
    connect(&panel, &ProblemPanel::chosen, this, &EditorGuide::goTo);
    connect(&panel, &ProblemPanel::failureChosen, this, [this] {
        if (const guide::Finding* failure = marks_.runFailure()) goTo(failure->line, failure->roman);
    });
    connect(&panel, &ProblemPanel::correctionWanted, this, &EditorGuide::mendChosen);
}

void EditorGuide::show() {
    marks_.setFindings(watch_.findings());
    panel_.setFindings(watch_.findings());
    followCaret();
}

void EditorGuide::setRunFailure(const std::optional<guide::RunFailure>& failure) {
    marks_.setRunFailure(failure);
    panel_.setRunFailure(failure);
}

void EditorGuide::followCaret() {
    const guide::Finding* finding = marks_.atCaret();
    if (finding != nullptr && finding->kind != guide::failedRun) panel_.chooseLine(finding->line);
    emit saidAtCaret(finding == nullptr ? StyledText() : finding->text);
}

void EditorGuide::goTo(std::size_t line, guide::Columns place) {
    const QTextBlock block = roman_.document()->findBlockByNumber(static_cast<int>(line) - 1);
    if (!block.isValid()) return;
    QTextCursor caret(block);
    caret.setPosition(block.position() + std::min(static_cast<int>(place.from), block.length() - 1));
    roman_.setTextCursor(caret);
    roman_.ensureCursorVisible();
    roman_.setFocus();
}

void EditorGuide::goToNext() {
    watch_.checkNow();
    panel_.chooseNext();
}

// The text may have changed since the last check; a correction is for the text that was checked.
void EditorGuide::mend() {
    if (roman_.isLocked()) return;
    watch_.checkNow();
    const guide::Finding* finding = marks_.atCaret();
    const bool here = finding != nullptr && !finding->corrections.empty();
    make(here ? &finding->corrections[0] : panel_.correction());
}

// The panel may be gone afterwards, with the keyboard.
void EditorGuide::mendChosen(std::size_t number) {
    if (roman_.isLocked()) return;
    watch_.checkNow();
    make(panel_.correction(number));
    roman_.setFocus();
}

void EditorGuide::make(const guide::Correction* correction) {
    if (correction == nullptr) return;
    const guide::Correction made = *correction;
    roman_.replaceText(guide::corrected(roman_.text(), made));
    watch_.checkNow();
}

std::string_view EditorGuide::currentKind() const {
    const guide::Finding* finding = marks_.atCaret();
    if (finding != nullptr) return finding->kind;
    return panel_.kind() == guide::failedRun ? guide::failedRun : std::string_view();
}

}  // namespace tolvan
