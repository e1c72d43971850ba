// The words of the library: ready-made functions that are no part of the language's grammar. The translator knows
// nothing of them; a program that uses one gets its script function put after its module.
#pragma once

#include "translator/LanguageWords.h"

#include <cstdint>
#include <span>
#include <string_view>

namespace tolvan {

struct LibraryWord : LanguageWord {
    std::string_view parameters;  // of its script function: names, separated by commas; empty: none
    // The lines of its script function, separated by "\n", in which "%" stands for its name.
    std::string_view body;
    std::string_view usage;  // how it stands in a program, in Roman spelling
    enum class Kind : std::uint8_t { Value, Command };
    Kind kind = Kind::Value;  // a command begins a statement and has no value
};

// In the order in which one learns them. Two spellings of one word that inflects (niLA, niLyA) are two rows.
std::span<const LibraryWord> libraryWords();

// The library word with this font-encoded name; null if there is none.
const LibraryWord* findLibraryWord(std::string_view name);

// How many values it takes.
std::size_t parameterCount(const LibraryWord& word);

}  // namespace tolvan
