// The words of the language: those that stand for one piece of script each, and those that mark statements. All texts
// are font-encoded and are compared byte for byte.
#pragma once

#include "platform/encoding/Deva.h"

#include <optional>
#include <span>
#include <string_view>

namespace tolvan {

struct Keyword {
    std::string_view word;
    std::string_view script;  // what the word becomes; may be empty
};

// In the order in which a word is looked for. A word occurs once; two words may become the same script.
std::span<const Keyword> keywords();

// The script of a keyword; nothing for any other word.
std::optional<std::string_view> keywordScript(std::string_view word);

// Words that more than one table or rule looks for. The blanks around the two loop words belong to them.
namespace words {

inline constexpr std::string_view comment = "sucna"_deva;

inline constexpr std::string_view ifWord = "jr"_deva;
inline constexpr std::string_view thenWord = "tr"_deva;
inline constexpr std::string_view elseWord = "nahItr"_deva;
inline constexpr std::string_view end = "s<pv"_deva;
inline constexpr std::string_view whileWord = "jaevr"_deva;
inline constexpr std::string_view wend = "kr"_deva;
inline constexpr std::string_view next = "puFca"_deva;
inline constexpr std::string_view function = "%pàayaejn"_deva;

inline constexpr std::string_view loopVariable = " saQI "_deva;
inline constexpr std::string_view loopEnd = " te "_deva;

}  // namespace words
}  // namespace tolvan
