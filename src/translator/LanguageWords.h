// The words of the language as a beginner learns them: how each is typed, and what it does. The completion list, the
// guide's spelling and the page docs/words.md are made from this table and that of the library's words.
#pragma once

#include <span>
#include <string_view>

namespace tolvan {

struct LanguageWord {
    std::string_view roman;          // as it is typed
    std::string_view meaning;        // in Marathi, in Roman spelling; letters and blanks only
    std::string_view english;        // for the page
    std::string_view standard = {};  // as school books spell it, in Roman spelling, where that differs
};

// Every keyword, and the words of the drawing statements, counted loops and comments. In the order in which one learns
// them.
std::span<const LanguageWord> languageWords();

// The one that a font-encoded word is; null for any other word.
const LanguageWord* findLanguageWord(std::string_view word);

// Whether a font-encoded word is one of them.
inline bool isLanguageWord(std::string_view word) {
    return findLanguageWord(word) != nullptr;
}

}  // namespace tolvan
