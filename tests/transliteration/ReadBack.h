// What a Roman word sounds like, to compare it with what its codes read as.
#pragma once

#include "platform/encoding/Unicode.h"
#include "platform/encoding/Utf8.h"
#include "platform/transliteration/RomanReader.h"

#include <array>
#include <string>

namespace tolvan {

inline std::string withoutJoiners(std::string text) {
    for (const std::string_view joiner : {"\u200C", "\u200D"})
        for (std::size_t found; (found = text.find(joiner)) != std::string::npos;) text.erase(found, joiner.size());
    return text;
}

// In Unicode. Nothing but letters; no virama but at the end.
inline std::string soundsOf(std::string_view roman) {
    static constexpr auto consonants = std::to_array<std::string_view>(
        {"क", "ख", "ग", "घ", "ङ", "च", "छ", "ज", "झ", "ञ", "ट", "ठ", "ड", "ढ", "ण", "त",  "थ",  "द", "ध",
         "न", "प", "फ", "ब", "भ", "म", "य", "र", "ल", "व", "श", "ष", "स", "ह", "ळ", "क्ष", "ज्ञ", "ऱ"});
    static constexpr auto vowels =
        std::to_array<std::string_view>({"अ", "आ", "इ", "ई", "उ", "ऊ", "ऋ", "ए", "ऐ", "ओ", "औ", "ॲ", "ऑ"});
    static constexpr auto vowelSigns =
        std::to_array<std::string_view>({"", "ा", "ि", "ी", "ु", "ू", "ृ", "े", "ै", "ो", "ौ", "ॅ", "ॉ"});
    std::string text;
    bool consonantBefore = false;
    const auto addConsonant = [&](Sound sound) {
        if (consonantBefore) text += "्";
        text += consonants.at(static_cast<std::size_t>(sound));
        consonantBefore = true;
    };
    const auto addNukta = [&] {
        if (text.ends_with("़") || text.ends_with("ऱ") || text.ends_with("\u0929") || text.ends_with("\u0934")) return;
        for (const NuktaLetter& letter : nuktaLetters)
            if (std::string whole; appendUtf8(letter.letter, whole), letter.composed && text.ends_with(whole)) {
                text.resize(text.size() - whole.size());
                return appendUtf8(letter.withNukta, text);
            }
        text += "़";
    };
    while (!roman.empty()) {
        const SpelledSound spelled = longestSpelling(roman).value();
        roman.remove_prefix(spelled.length);
        const Sound sound = spelled.sound;
        if (isConsonant(sound)) {
            addConsonant(sound);
        } else if (isVowel(sound)) {
            const std::size_t vowel = static_cast<std::size_t>(sound) - static_cast<std::size_t>(Sound::A);
            text += (consonantBefore ? vowelSigns : vowels).at(vowel);
            consonantBefore = false;
        } else if (sound == Sound::NuktaOrSeparator) {
            if (consonantBefore) addNukta();
        } else if (sound == Sound::Virama) {
            text += "्";
            consonantBefore = false;
        } else if (text.empty()) {
            addConsonant(sound == Sound::Visarga ? Sound::Ha : Sound::Ma);
            if (sound == Sound::Candrabindu) addConsonant(Sound::Ma);
        } else {
            text += sound == Sound::Anusvara ? "ं" : sound == Sound::Candrabindu ? "ँ" : "ः";
            consonantBefore = false;
        }
    }
    return text;
}

// A spelling that `random` picks; the virama is left out.
inline std::string_view anySpelling(std::size_t random) {
    const Spelling& spelling = spellings[random % spellings.size()];
    return spelling.sound == Sound::Virama ? "a" : spelling.roman;
}

}  // namespace tolvan
