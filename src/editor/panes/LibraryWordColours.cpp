#include "editor/panes/LibraryWordColours.h"

#include "editor/panes/ProgramBox.h"
#include "editor/panes/RomanInput.h"
#include "editor/panes/WordColours.h"
#include "guide/OwnWords.h"
#include "platform/transliteration/ReplaceRomanChars.h"

#include <set>
#include <string>

namespace tolvan {

LibraryWordColours::LibraryWordColours(RomanInput& input, ProgramBox& program) : input_(input), program_(program) {
    connect(&input, &RomanInput::linesReplaced, this, &LibraryWordColours::linesReplaced);
    linesReplaced(0, 0, input.lines().count());
    program.setColouring([this](StyledView line) {
        return wordColours(line, [this](const LibraryWord& word) { return linesOfOwn_.contains(&word); });
    });
}

void LibraryWordColours::linesReplaced(std::size_t first, std::size_t removed, std::size_t added) {
    std::set<const LibraryWord*> before;
    for (const auto& [word, lines] : linesOfOwn_) before.insert(word);
    const auto begin = ownOfLine_.begin() + static_cast<std::ptrdiff_t>(first);
    for (auto line = begin; line != begin + static_cast<std::ptrdiff_t>(removed); ++line)
        for (const LibraryWord* word : *line)
            if (--linesOfOwn_[word] == 0) linesOfOwn_.erase(word);
    std::vector<std::vector<const LibraryWord*>> own;
    for (std::size_t line = first; line < first + added; ++line) {
        own.push_back(guide::ownWordsOf(input_.lines().roman(line)));
        for (const LibraryWord* word : own.back()) ++linesOfOwn_[word];
    }
    ownOfLine_.insert(ownOfLine_.erase(begin, begin + static_cast<std::ptrdiff_t>(removed)), own.begin(), own.end());

    for (const LibraryWord& word : libraryWords())
        if (linesOfOwn_.contains(&word) != before.contains(&word)) program_.colourLinesWith(LineConvert(word.roman));
}

}  // namespace tolvan
