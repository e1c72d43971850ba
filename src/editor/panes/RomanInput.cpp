#include "editor/panes/RomanInput.h"

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

// Positions and lengths are those of the document. The lines behind the change are as many as before.
void RomanInput::update(int position, int, int added) {
    const QTextDocument& document = *roman_.document();
    const auto count = static_cast<std::size_t>(document.blockCount());
    const int last = std::min(position + added, document.characterCount() - 1);
    auto first = static_cast<std::size_t>(document.findBlock(position).blockNumber());
    std::size_t behind = static_cast<std::size_t>(document.findBlock(last).blockNumber()) + 1;
    std::size_t removed = lines_.count() - (count - behind) - first;

    // A command may have set most lines to what they were.
    const auto same = [&](std::size_t line, std::size_t before) { return roman_.line(line) == lines_.roman(before); };
    while (behind - first > 1 && removed > 1 && same(behind - 1, first + removed - 1)) --behind, --removed;
    while (behind - first > 1 && removed > 1 && same(first, first)) ++first, --removed;
    if (behind - first == 1 && removed == 1 && same(first, first)) return;

    std::vector<std::string> roman;
    roman.reserve(behind - first);
    for (std::size_t line = first; line < behind; ++line) roman.push_back(roman_.line(line));
    for (const ProgramLinesUpdate& change : lines_.replace(first, removed, std::move(roman)))
        program_.replaceLines(change);
}

bool RomanInput::caretIsInSpan() const {
    const QTextCursor caret = roman_.textCursor();
    return lines_.isInSpan(static_cast<std::size_t>(caret.blockNumber()),
                           static_cast<std::size_t>(caret.positionInBlock()));
}

}  // namespace tolvan
