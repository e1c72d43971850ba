// Finds the words that a misspelt word may be meant for.
#pragma once

#include "guide/Sounds.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tolvan::guide {

// Where in a line a word has its place. One word can have several.
namespace place {
inline constexpr unsigned start = 1;  // of a statement
inline constexpr unsigned inner = 2;
inline constexpr unsigned anywhere = start | inner;
}  // namespace place

struct Candidate {
    Candidate(std::string_view spelling, unsigned where) : roman(spelling), places(where), sounds(soundsOf(spelling)) {}

    std::string roman;
    unsigned places;
    Sounds sounds;
};

struct Suggestion {
    std::vector<std::string> words;  // the nearest first; a second one is as likely. None: nothing is near enough
    bool sure = false;               // the first one is meant

    bool empty() const { return words.empty(); }
};

// Words that cost more are not offered, and none is sure that costs more than this or has another near it.
inline constexpr double likelyCost = 1.0;
inline constexpr double sureCost = 0.5;
inline constexpr double rivalDistance = 0.2;

Suggestion suggestFor(std::string_view typed, std::span<const Candidate> candidates, unsigned places = place::anywhere);

// Spellings with the same key differ at most in what is corrected without asking: short and long i and u, the anusvara
// and n or m before a consonant, and doubled letters.
Sounds plainKey(std::string_view roman);

}  // namespace tolvan::guide
