#include "editor/panes/RomanInput.h"

#include "editor/panes/LeftOut.h"
#include "editor/panes/ProgramBox.h"
#include "editor/panes/RomanBox.h"

#include <QTextBlock>

#include <algorithm>
#include <string>
#include <vector>

namespace tolvan {

RomanInput::RomanInput(RomanBox& roman, ProgramBox& program) : roman_(roman), program_(program) {
    connect(roman.document(), &QTextDocument::contentsChange, this, &RomanInput::update);
    connect(&roman, &RomanBox::textChanged, this, &RomanInput::programChanged);
    program.setText({});
    update(0, 0, roman.document()->characterCount());
}

// Positions and lengths are those of the document. As many lines follow the change as before.
void RomanInput::update(int position, int, int added) {
    const QTextDocument& document = *roman_.document();
    const auto count = static_cast<std::size_t>(document.blockCount());
    const int last = std::min(position + added, document.characterCount() - 1);
    auto first = static_cast<std::size_t>(document.findBlock(position).blockNumber());
    std::size_t end = static_cast<std::size_t>(document.findBlock(last).blockNumber()) + 1;
    std::size_t removed = lines_.count() - (count - end) - first;

    // A command may have set most lines to what they were.
    const auto same = [&](std::size_t line, std::size_t before) { return roman_.line(line) == lines_.roman(before); };
    while (end - first > 1 && removed > 1 && same(end - 1, first + removed - 1)) --end, --removed;
    while (end - first > 1 && removed > 1 && same(first, first)) ++first, --removed;
    if (end - first == 1 && removed == 1 && same(first, first)) return;

    std::vector<std::string> roman;
    roman.reserve(end - first);
    for (std::size_t line = first; line < end; ++line) roman.push_back(roman_.line(line));
    for (const ProgramLinesUpdate& change : lines_.replace(first, removed, std::move(roman)))
        program_.replaceLines(change);
    emit linesReplaced(first, removed, end - first);
}

std::string RomanInput::leftOut() const {
    const auto line = static_cast<std::size_t>(roman_.textCursor().blockNumber());
    return line < lines_.count() ? leftOutWord(lines_.roman(line), lines_.isInSpan(line, 0)) : std::string();
}

bool RomanInput::caretIsInSpan() const {
    const QTextCursor caret = roman_.textCursor();
    return lines_.isInSpan(static_cast<std::size_t>(caret.blockNumber()),
                           static_cast<std::size_t>(caret.positionInBlock()));
}

}  // namespace tolvan
