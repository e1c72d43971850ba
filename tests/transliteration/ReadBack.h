// Reads font-encoded words back into Unicode by the table of what each code draws, to compare them with the sounds that
// the Roman spelling stands for.
#pragma once

#include "platform/encoding/Deva.h"
#include "platform/transliteration/RomanReader.h"
#include "support/EncodingTable.h"

#include <array>
#include <string>

namespace tolvan {

// Vowels and signs are taken apart, as the font has them: o is the sign of aa and the sign of e.
inline std::u32string unicodeOf(std::string_view utf8) {
    std::u32string text;
    for (std::size_t i = 0; i < utf8.size();) {
        const char32_t character = detail::nextCharacter(utf8.data(), i);
        text += character == U'ऱ' ? U"\u0930\u093C" : std::u32string(1, character);
    }
    return text;
}

class FontCodes {
  public:
    FontCodes() {
        for (const EncodingRow& row : encodingTable()) codes_.at(row.code) = {row.kind, unicodeOf(row.draws)};
    }

    // The codes that draw something, in ascending order.
    std::string inUse() const {
        std::string codes;
        for (std::size_t code = 0; code < codes_.size(); ++code)
            if (!codes_[code].draws.empty()) codes += static_cast<char>(code);
        return codes;
    }

    std::u32string read(std::string_view encoded) const { return Reading(*this).read(encoded); }

  private:
    struct Code {
        std::string kind;
        std::u32string draws;
    };

    class Reading {
      public:
        explicit Reading(const FontCodes& codes) : codes_(codes) {}

        std::u32string read(std::string_view encoded) {
            for (const char character : encoded) take(codes_.codes_[static_cast<unsigned char>(character)]);
            endCluster();
            return text_;
        }

      private:
        static constexpr char32_t virama = U'\u094D';

        void take(const Code& code) {
            if (code.draws == U"\u093C") {
                if (!joins_) endCluster();
                nukta_ = true;
            } else if (code.kind == "consonant" || code.kind == "conjunct" || code.kind == "syllable" ||
                       code.kind == "half") {
                takeLetters(code);
            } else if (code.kind == "form" || code.draws == std::u32string(1, virama)) {
                text_ += code.draws;
                joins_ = code.kind != "form";
            } else if (code.kind == "sign-before") {
                endCluster();
                shortI_ = code.draws;
            } else if (code.kind == "reph") {
                endShortI();
                text_.insert(start_, U"\u0930\u094D");
                text_ += code.draws.substr(2);  // the anusvara
            } else {
                if (code.kind == "vowel") endCluster();
                endShortI();
                text_ += code.draws;
            }
        }
        void takeLetters(const Code& code) {
            if (!joins_ && inCluster_) endCluster();
            if (!inCluster_) start_ = text_.size();
            inCluster_ = true;
            text_ += code.draws;
            joins_ = code.kind == "half";
            // A nukta belongs to the letter, before its virama or sign.
            if (nukta_)
                text_.insert(text_.size() - (code.kind == "half" || code.kind == "syllable" ? 1 : 0), 1, U'\u093C');
            nukta_ = false;
        }
        void endShortI() {
            text_ += shortI_;
            shortI_.clear();
        }
        void endCluster() {
            if (inCluster_) endShortI();
            inCluster_ = joins_ = false;
        }

        const FontCodes& codes_;
        std::u32string text_;
        std::size_t start_ = 0;   // of the cluster
        bool inCluster_ = false;  // a cluster began that no vowel or other cluster has ended
        bool joins_ = false;      // the next letter belongs to it
        bool nukta_ = false;      // on the next letter
        std::u32string shortI_;   // at the end of the cluster
    };

    std::array<Code, 256> codes_;
};

// What a Roman word sounds like, in Unicode. Nothing but letters; no virama but at the end.
inline std::u32string soundsOf(std::string_view roman) {
    static constexpr auto consonants = std::to_array<std::u32string_view>(
        {U"क", U"ख", U"ग", U"घ", U"ङ", U"च", U"छ", U"ज", U"झ",  U"ञ",  U"ट",           U"ठ", U"ड",
         U"ढ", U"ण", U"त", U"थ", U"द", U"ध", U"न", U"प", U"फ",  U"ब",  U"भ",           U"म", U"य",
         U"र", U"ल", U"व", U"श", U"ष", U"स", U"ह", U"ळ", U"क्ष", U"ज्ञ", U"\u0930\u093C"});
    static constexpr auto vowels = std::to_array<std::u32string_view>(
        {U"अ", U"अा", U"इ", U"ई", U"उ", U"ऊ", U"ऋ", U"ए", U"एे", U"अाे", U"अाै", U"अॅ", U"अाॅ"});
    static constexpr auto vowelSigns =
        std::to_array<std::u32string_view>({U"", U"ा", U"ि", U"ी", U"ु", U"ू", U"ृ", U"े", U"ै", U"ाे", U"ाै", U"ॅ", U"ाॅ"});
    std::u32string text;
    bool consonantBefore = false;
    const auto addConsonant = [&](Sound sound) {
        if (consonantBefore) text += U'\u094D';
        text += consonants.at(static_cast<std::size_t>(sound));
        consonantBefore = true;
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
        } else if (sound == Sound::NuktaOrParting) {
            if (consonantBefore && text.back() != U'\u093C') text += U'\u093C';
        } else if (sound == Sound::Virama) {
            text += U'\u094D';
            consonantBefore = false;
        } else if (text.empty()) {
            addConsonant(sound == Sound::Visarga ? Sound::Ha : Sound::Ma);
            if (sound == Sound::Candrabindu) addConsonant(Sound::Ma);
        } else {
            text += sound == Sound::Anusvara ? U'ं' : sound == Sound::Candrabindu ? U'ँ' : U'ः';
            consonantBefore = false;
        }
    }
    return text;
}

// Unicode has one character for what the font puts together.
inline std::u32string composed(std::u32string text) {
    static const std::pair<std::u32string, char32_t> pairs[] = {
        {U"\u0905\u093E\u0947", U'ओ'}, {U"\u0905\u093E\u0948", U'औ'}, {U"\u0905\u093E\u0945", U'ऑ'},
        {U"\u0905\u093E", U'आ'},       {U"\u0905\u0945", U'ॲ'},       {U"\u090F\u0947", U'ऐ'},
        {U"\u093E\u0947", U'\u094B'},  {U"\u093E\u0948", U'\u094C'},  {U"\u093E\u0945", U'\u0949'},
        {U"\u0930\u093C", U'\u0931'},
    };
    for (const auto& [parts, whole] : pairs)
        for (std::size_t found = 0; (found = text.find(parts, found)) != std::u32string::npos;)
            text.replace(found, parts.size(), 1, whole);
    return text;
}

// A spelling that `random` picks; the virama is left out.
inline std::string_view anySpelling(std::size_t random) {
    const Spelling& spelling = spellings[random % spellings.size()];
    return spelling.sound == Sound::Virama ? "a" : spelling.roman;
}

}  // namespace tolvan
