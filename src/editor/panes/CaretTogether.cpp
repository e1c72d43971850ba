#include "editor/panes/CaretTogether.h"

#include "editor/panes/ProgramBox.h"
#include "editor/panes/RomanBox.h"
#include "editor/panes/RomanInput.h"

#include <QTextBlock>

namespace tolvan {
namespace {

// Nobody types a longer line, and finding a place in one from a damaged file would take too long at every key.
constexpr int longestLine = 10'000;

}  // namespace

CaretTogether::CaretTogether(RomanBox& roman, ProgramBox& program, const RomanInput& input)
    : roman_(roman), program_(program), input_(input) {
    connect(&roman, &RomanBox::caretMoved, this, &CaretTogether::followRoman);
    connect(&program, &ProgramBox::clicked, this, &CaretTogether::followClick);
}

void CaretTogether::followRoman() {
    const QTextCursor caret = roman_.textCursor();
    const auto line = static_cast<std::size_t>(caret.blockNumber());
    const bool isBeingChanged = line >= input_.lines().count();
    if (isBeingChanged || caret.block().length() > longestLine) return;
    const std::size_t column = input_.lines().programColumn(line, static_cast<std::size_t>(caret.positionInBlock()));
    program_.showColumn(caret.blockNumber() + 1, column);
}

void CaretTogether::followClick() {
    const QTextCursor clicked = program_.textCursor();
    const QTextBlock line = roman_.document()->findBlockByNumber(clicked.blockNumber());
    if (!line.isValid()) return;
    QTextCursor caret(line);
    if (line.length() <= longestLine) {
        const std::size_t column = input_.lines().romanColumn(static_cast<std::size_t>(line.blockNumber()),
                                                              static_cast<std::size_t>(clicked.positionInBlock()));
        caret.setPosition(line.position() + static_cast<int>(column));
    }
    roman_.setTextCursor(caret);
    roman_.setFocus();
}

}  // namespace tolvan
