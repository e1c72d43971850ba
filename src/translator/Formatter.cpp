#include "translator/Formatter.h"

#include "platform/encoding/Ascii.h"
#include "platform/encoding/Lines.h"
#include "translator/Blanks.h"
#include "translator/Keywords.h"
#include "translator/Scanner.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <vector>

namespace tolvan {
namespace {

constexpr std::size_t indentation = 6;  // blanks a level
constexpr std::size_t maxIndentation = std::size_t{64} << 20;

using Lines = std::vector<std::string_view>;
using ProgramLines = std::vector<StyledView>;
using Levels = std::vector<std::size_t>;  // of indentation, one number a line

// The lines without the blanks around them; at least one line.
template <class Text>
std::vector<Text> splitLines(Text text, std::string_view characters) {
    std::vector<Text> lines;
    for (const LinePlace& line : linePlaces(characters))
        lines.push_back(trimBlanks(text.substr(line.begin, line.size())));
    return lines;
}

// What the translator reads of each line: nothing from the comment word on.
ProgramLines readLines(StyledView program) {
    ProgramLines lines = splitLines(program, program.text());
    for (StyledView& line : lines) line = trimBlanks(line.substr(0, line.text().find(words::comment)));
    return lines;
}

bool isWordAt(StyledView line, std::size_t start, std::string_view word) {
    if (line.text().substr(start, word.size()) != word) return false;
    const std::size_t end = start + word.size();
    const auto separates = [line](std::size_t place) { return IsSeparator(line[place], line.font(place)); };
    return (start == 0 || separates(start - 1)) && (end == line.size() || separates(end));
}

// Where the word first stands, not as a part of another one; npos if nowhere.
std::size_t findWord(StyledView line, std::string_view word) {
    std::size_t found = line.text().find(word);
    while (found != std::string_view::npos && !isWordAt(line, found, word)) found = line.text().find(word, found + 1);
    return found;
}

bool hasWord(StyledView line, std::string_view word) {
    return findWord(line, word) != std::string_view::npos;
}

void addFunctionLevels(const ProgramLines& tested, Levels& levels) {
    bool inFunction = false;
    for (std::size_t i = 0; i < tested.size(); ++i) {
        const bool named = hasWord(tested[i], words::function);
        const bool ends = hasWord(tested[i], words::end);
        if (inFunction && named && ends)
            inFunction = false;
        else if (inFunction)
            ++levels[i];
        else
            inFunction = named && !ends;
    }
}

bool isClosing(StyledView line) {
    constexpr std::array closers = {words::wend, words::end, words::next};
    return std::any_of(closers.begin(), closers.end(), [&](std::string_view word) { return isWordAt(line, 0, word); });
}

// A condition with a statement after its "then" is complete on its line.
bool endsInThen(StyledView line) {
    const std::size_t found = findWord(line, words::thenWord);
    return found != std::string_view::npos && trimBlanks(line.substr(found + words::thenWord.size())).empty();
}

// The word that closes the block which the line opens; empty if it opens none.
std::string_view closerOf(StyledView line) {
    const auto contains = [line](std::string_view words) { return line.text().find(words) != std::string_view::npos; };
    if (isWordAt(line, 0, words::whileWord)) return words::wend;
    if (isWordAt(line, 0, words::ifWord) && endsInThen(line)) return words::end;
    if (contains(words::loopEnd) && contains(words::loopVariable)) return words::next;
    return {};
}

// Inside a block only its own closing word counts; other closing words are ordinary lines there.
void addBlockLevels(const ProgramLines& tested, Levels& levels) {
    std::vector<std::string_view> open;  // the closing words of the blocks around the line
    std::size_t conditions = 0;          // how many of them are conditions
    for (std::size_t i = 0; i < tested.size(); ++i) {
        const StyledView line = tested[i];
        if (isClosing(line) && open.empty()) return;
        if (isClosing(line) && isWordAt(line, 0, open.back())) {
            if (open.back() == words::end) --conditions;
            open.pop_back();
        }
        levels[i] += open.size();
        // "Else" stands where its condition stands.
        if (line.text() == words::elseWord && conditions > 0) --levels[i];
        if (isClosing(line)) continue;
        if (const std::string_view closer = closerOf(line); !closer.empty()) {
            open.push_back(closer);
            if (closer == words::end) ++conditions;
        }
    }
}

std::string joinIndented(const Lines& shown, const Levels& levels) {
    std::string text;
    for (std::size_t i = 0; i < shown.size(); ++i) {
        if (i > 0) text += lineEnd;
        if (i < levels.size()) text.append(levels[i] * indentation, ' ');
        text += shown[i];
    }
    return text;
}

bool isTooDeep(const Levels& levels) {
    std::size_t blanks = 0;
    for (const std::size_t level : levels) {
        blanks += level * indentation;
        if (blanks > maxIndentation) return true;
    }
    return false;
}

}  // namespace

std::string formatProgram(std::string_view roman, StyledView program) {
    const ProgramLines tested = readLines(program);
    Levels levels(tested.size());
    addFunctionLevels(tested, levels);
    addBlockLevels(tested, levels);
    if (isTooDeep(levels)) return std::string(roman);
    return joinIndented(splitLines(roman, roman), levels);
}

}  // namespace tolvan
