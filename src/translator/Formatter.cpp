#include "translator/Formatter.h"

#include "platform/encoding/Ascii.h"
#include "translator/Blanks.h"
#include "translator/Keywords.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <vector>

namespace tolvan {
namespace {

constexpr std::size_t indentation = 6;  // blanks a level
constexpr std::size_t maxIndentation = std::size_t{64} << 20;

using Lines = std::vector<std::string_view>;
using Levels = std::vector<std::size_t>;  // of indentation, one number a line

bool contains(std::string_view line, std::string_view word) {
    return line.find(word) != std::string_view::npos;
}

// At least one line.
Lines splitLines(std::string_view text) {
    Lines lines;
    for (std::size_t start = 0; start <= text.size();) {
        const std::size_t end = std::min(text.find(lineEnd, start), text.size());
        lines.push_back(trimBlanks(text.substr(start, end - start)));
        start = end + lineEnd.size();
    }
    return lines;
}

void addFunctionLevels(const Lines& tested, Levels& levels) {
    bool inFunction = false;
    for (std::size_t i = 0; i < tested.size(); ++i) {
        const bool named = contains(tested[i], words::function);
        const bool ends = contains(tested[i], words::end);
        if (inFunction && named && ends)
            inFunction = false;
        else if (inFunction)
            ++levels[i];
        else
            inFunction = named && !ends;
    }
}

bool isClosing(std::string_view line) {
    constexpr std::array closers = {words::wend, words::end, words::next};
    return std::any_of(closers.begin(), closers.end(), [&](std::string_view word) { return line.starts_with(word); });
}

// A condition with a statement behind its "then" is complete on its line.
bool endsInThen(std::string_view line) {
    const std::size_t found = line.find(words::thenWord);
    return found != std::string_view::npos && trimBlanks(line.substr(found + words::thenWord.size())).empty();
}

// The word that closes the block which the line opens; empty if it opens none.
std::string_view closerOf(std::string_view line) {
    if (line.starts_with(words::whileWord)) return words::wend;
    if (line.starts_with(words::ifWord) && endsInThen(line)) return words::end;
    if (contains(line, words::loopEnd) && contains(line, words::loopVariable)) return words::next;
    return {};
}

// Inside a block only its own closing word counts; other closing words are ordinary lines there.
void addBlockLevels(const Lines& tested, Levels& levels) {
    std::vector<std::string_view> open;  // the closing words of the blocks around the line
    std::size_t conditions = 0;          // how many of them are conditions
    for (std::size_t i = 0; i < tested.size(); ++i) {
        const std::string_view line = tested[i];
        if (isClosing(line) && open.empty()) return;
        if (isClosing(line) && line.starts_with(open.back())) {
            if (open.back() == words::end) --conditions;
            open.pop_back();
        }
        levels[i] += open.size();
        // "Else" stands where its condition stands.
        if (line == words::elseWord && conditions > 0) --levels[i];
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

std::string formatProgram(std::string_view roman, std::string_view program) {
    const Lines tested = splitLines(program);
    Levels levels(tested.size());
    addFunctionLevels(tested, levels);
    addBlockLevels(tested, levels);
    if (isTooDeep(levels)) return std::string(roman);
    return joinIndented(splitLines(roman), levels);
}

}  // namespace tolvan
