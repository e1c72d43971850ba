// The Roman spelling: which letters stand for which sound. The longest spelling wins.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace tolvan {

enum class Sound : std::uint8_t {
    // Consonants, in the order of the alphabet.
    Ka,
    Kha,
    Ga,
    Gha,
    Nga,
    Cha,
    Chha,
    Ja,
    Jha,
    Nya,
    Tta,
    Ttha,
    Dda,
    Ddha,
    Nna,
    Ta,
    Tha,
    Da,
    Dha,
    Na,
    Pa,
    Pha,
    Ba,
    Bha,
    Ma,
    Ya,
    Ra,
    La,
    Va,
    Sha,
    Ssa,
    Sa,
    Ha,
    Lla,
    Ksha,
    Dnya,
    EyelashRa,  // the last consonant
    // Vowels.
    A,
    Aa,
    I,
    Ii,
    U,
    Uu,
    Ri,
    E,
    Ai,
    O,
    Au,
    CandraE,
    CandraO,  // the last vowel
    // What follows a syllable or a consonant.
    Anusvara,
    Candrabindu,
    Visarga,
    Virama,
    NuktaOrSeparator,  // after a consonant the nukta; after a vowel it only separates two spellings
};

constexpr bool isConsonant(Sound sound) {
    return sound <= Sound::EyelashRa;
}
constexpr bool isVowel(Sound sound) {
    return sound > Sound::EyelashRa && sound <= Sound::CandraO;
}

struct Spelling {
    std::string_view roman;
    Sound sound;
};

inline constexpr auto spellings = std::to_array<Spelling>({
    {"k", Sound::Ka},
    {"kh", Sound::Kha},
    {"g", Sound::Ga},
    {"gh", Sound::Gha},
    {"NG", Sound::Nga},
    {"ch", Sound::Cha},
    {"c", Sound::Cha},
    {"chh", Sound::Chha},
    {"Ch", Sound::Chha},
    {"j", Sound::Ja},
    {"jh", Sound::Jha},
    {"z", Sound::Jha},
    {"NY", Sound::Nya},
    {"T", Sound::Tta},
    {"Th", Sound::Ttha},
    {"D", Sound::Dda},
    {"Dh", Sound::Ddha},
    {"N", Sound::Nna},
    {"t", Sound::Ta},
    {"th", Sound::Tha},
    {"d", Sound::Da},
    {"dh", Sound::Dha},
    {"n", Sound::Na},
    {"p", Sound::Pa},
    {"ph", Sound::Pha},
    {"f", Sound::Pha},
    {"b", Sound::Ba},
    {"bh", Sound::Bha},
    {"m", Sound::Ma},
    {"y", Sound::Ya},
    {"r", Sound::Ra},
    {"l", Sound::La},
    {"L", Sound::Lla},
    {"v", Sound::Va},
    {"w", Sound::Va},
    {"sh", Sound::Sha},
    {"Sh", Sound::Ssa},
    {"s", Sound::Sa},
    {"h", Sound::Ha},
    {"ksh", Sound::Ksha},
    {"kSh", Sound::Ksha},
    {"x", Sound::Ksha},
    {"dny", Sound::Dnya},
    {"jny", Sound::Dnya},
    {"GY", Sound::Dnya},
    {"R", Sound::EyelashRa},

    {"a", Sound::A},
    {"A", Sound::Aa},
    {"aa", Sound::Aa},
    {"i", Sound::I},
    {"I", Sound::Ii},
    {"ii", Sound::Ii},
    {"ee", Sound::Ii},
    {"u", Sound::U},
    {"U", Sound::Uu},
    {"uu", Sound::Uu},
    {"oo", Sound::Uu},
    {"Ri", Sound::Ri},
    {"RRi", Sound::Ri},
    {"e", Sound::E},
    {"ai", Sound::Ai},
    {"o", Sound::O},
    {"au", Sound::Au},
    {"E", Sound::CandraE},
    {"O", Sound::CandraO},

    {"M", Sound::Anusvara},
    {"MM", Sound::Candrabindu},
    {"H", Sound::Visarga},
    {"q", Sound::Virama},
    {"X", Sound::NuktaOrSeparator},
});

// Capitals that read as their small letter wherever no spelling of their own is meant.
inline constexpr std::string_view idleCapitals = "BCFGJKPQSVWYZ";

}  // namespace tolvan
