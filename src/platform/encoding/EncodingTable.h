// What each code of the Devanagari font draws: the table from which the font is built, tools/fonts/encoding.tsv.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace tolvan {

enum class GlyphKind : std::uint8_t {
    Unused,
    Blank,
    Consonant,
    Conjunct,
    Syllable,  // a consonant with its vowel sign
    Half,      // joins the letter after it
    Form,      // ya or ra after a letter without a half form
    Reph,
    Sign,
    SignBefore,  // the short i, which stands before its consonants
    Mark,
    Vowel,
    Digit,
    Other,
};

struct EncodingRow {
    GlyphKind kind = GlyphKind::Unused;
    std::string_view draws;  // in UTF-8; empty where nothing is drawn
    std::string_view note;   // empty: the usual code of what it draws
};

// The row of each code.
const std::array<EncodingRow, 256>& encodingTable();

// Codes that are one glyph together, and the text that this one draws.
struct Logotype {
    std::string_view codes;
    std::string_view draws;
};

// The product's name.
const Logotype& logotype();

}  // namespace tolvan
