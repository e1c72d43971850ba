// How far two spelled words are from each other to the ear of somebody who writes Marathi: not letters are compared but
// the sounds that they spell, and mistakes that are often made (a vowel's length, a nasal, a breath) cost little.
#pragma once

#include "platform/transliteration/Spellings.h"

#include <string>
#include <string_view>
#include <vector>

namespace tolvan::guide {

// The sounds of a word in Roman spelling. The last consonant has its a, typed or not; the mark that only
// separates spellings is left out. A character that spells nothing stands for itself, after all sounds.
using Sounds = std::vector<unsigned char>;
Sounds soundsOf(std::string_view roman);

inline constexpr unsigned char firstOtherCharacter = 128;

// What it costs to take the one for the other; 0 for words that sound the same. Costs above `limit` are not told
// apart: the answer is then any number above it.
double soundDistance(const Sounds& a, const Sounds& b, double limit);

// The same between the beginning of a word and what was typed of it.
double distanceToBeginning(std::string_view typed, const Sounds& word, double limit);

// One letter or two sound like the beginning of too many words.
inline constexpr std::size_t lettersToHear = 3;

// Whether somebody who has typed this much, and enough letters to hear something, may mean the word.
bool mayBeHeardAs(std::string_view typed, const Sounds& word);

// A spelling without what is easily taken for another: the letter case, and long vowels that are spelled by two letters
// ("aa", "ee", "oo").
std::string looseSpelling(std::string_view roman);

// Pairs of sounds that are taken for one another, with their cost; for whoever makes mistakes to measure with.
struct SoundPair {
    Sound one;
    Sound other;
    double cost;
};
const std::vector<SoundPair>& soundPairs();

}  // namespace tolvan::guide
