#include "guide/OwnWords.h"

#include "guide/Line.h"
#include "library/LibraryWords.h"
#include "translator/ProgramText.h"

#include <algorithm>
#include <string>

namespace tolvan::guide {
namespace {

// No sentence of a program is as long, and reading takes its time.
constexpr std::size_t longestLine = 4000;

const std::vector<std::string>& spellings() {
    static const auto all = [] {
        std::vector<std::string> glyphs;
        for (const LibraryWord& word : libraryWords()) glyphs.push_back(Transliterate(word.roman).text());
        return glyphs;
    }();
    return all;
}

// Most lines have no such word, and need not be read.
bool mayHaveOne(std::string_view roman) {
    const StyledText line = Transliterate(roman);
    return std::any_of(spellings().begin(), spellings().end(),
                       [&](const std::string& word) { return line.text().find(word) != std::string::npos; });
}

}  // namespace

std::vector<const LibraryWord*> ownWordsOf(std::string_view roman) {
    std::vector<const LibraryWord*> own;
    if (roman.size() > longestLine || !mayHaveOne(roman)) return own;
    const Line line(roman);
    WordNumbers names = line.statement.sets;
    if (line.statement.function) names.push_back(*line.statement.function);
    for (const std::size_t name : names)
        if (const LibraryWord* word = findLibraryWord(line.words[name].glyphs)) own.push_back(word);
    return own;
}

}  // namespace tolvan::guide
