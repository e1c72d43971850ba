// The glyphs of the Devanagari font that `convert` writes. Codes are given as windows-1252 characters.
#pragma once

#include "platform/encoding/Deva.h"
#include "platform/transliteration/Spellings.h"

#include <array>
#include <string_view>

namespace tolvan {

// Where the signs u, U and Ri find room below a glyph.
enum class SignPlace : std::uint8_t {
    Usual,
    Right,  // the stem stands in the middle
    Low,    // the glyph reaches low
};

// A letter or conjunct: the consonants in Roman spelling, the full glyph, and the half form that joins the letter
// after it, where the font has one.
struct ConsonantGlyph {
    std::string_view consonants;
    std::string_view full;
    std::string_view half = {};
    SignPlace place = SignPlace::Usual;
};

inline constexpr auto consonantGlyphs = std::to_array<ConsonantGlyph>({
    {"k", "k"_deva, "K"_deva, SignPlace::Right},
    {"kh", "o"_deva, "O"_deva},
    {"g", "g"_deva, "G"_deva},
    {"gh", "\""_deva, "¸"_deva},
    {"NG", "'"_deva, {}, SignPlace::Low},
    {"ch", "c"_deva, "C"_deva},
    {"chh", "D"_deva, {}, SignPlace::Low},
    {"j", "j"_deva, "J"_deva},
    {"jh", "H"_deva},
    {"NY", "|"_deva, "Á"_deva},
    {"T", "q"_deva, {}, SignPlace::Low},
    {"Th", "Q"_deva, {}, SignPlace::Low},
    {"D", "f"_deva, {}, SignPlace::Low},
    {"Dh", "F"_deva, {}, SignPlace::Low},
    {"N", "["_deva, "{"_deva},
    {"t", "t"_deva, "T"_deva},
    {"th", "w"_deva, "W"_deva},
    {"d", "d"_deva},
    {"dh", "x"_deva, "X"_deva},
    {"n", "n"_deva, "N"_deva},
    {"p", "p"_deva, "P"_deva},
    {"ph", ")"_deva, "á"_deva, SignPlace::Right},
    {"b", "b"_deva, "B"_deva},
    {"bh", "-"_deva, "_"_deva},
    {"m", "m"_deva, "M"_deva},
    {"y", "y"_deva, "Y"_deva},
    {"r", "r"_deva},
    {"l", "l"_deva, "L"_deva},
    {"v", "v"_deva, "V"_deva},
    {"sh", "z"_deva, "Z"_deva},
    {"Sh", ";"_deva, ":"_deva},
    {"s", "s"_deva, "S"_deva},
    {"h", "h"_deva},
    {"L", "¦"_deva},
    {"ksh", "]"_deva, "ú"_deva},
    {"dny", "}"_deva},
    {"R", "ˆr"_deva, "\u009d"_deva},  // the half form only before ya and ha

    {"kk", "Š"_deva, {}, SignPlace::Low},
    {"kt", "´"_deva, "®"_deva},
    {"kn", "²"_deva},
    {"kr", "³"_deva, {}, SignPlace::Right},
    {"kl", "¬"_deva, {}, SignPlace::Right},
    {"khr", "µ"_deva, {}, SignPlace::Right},
    {"gn", "¶"_deva},
    {"gr", "¢"_deva},
    {"ghn", "¹"_deva},
    {"ghr", "º"_deva},
    {"NGk", "»"_deva, {}, SignPlace::Low},
    {"NGkt", "“"_deva, {}, SignPlace::Low},
    {"NGkr", "±"_deva, {}, SignPlace::Low},
    {"NGg", "¼"_deva, {}, SignPlace::Low},
    {"chch", "½"_deva},
    {"chhr", "À"_deva, {}, SignPlace::Low},
    {"jj", "¾"_deva},
    {"jr", "¿"_deva},
    {"NYch", "Â"_deva},
    {"NYj", "Ã"_deva},
    {"TT", "”"_deva, {}, SignPlace::Low},
    {"tt", "Ä"_deva, "Å"_deva},
    {"tn", "Æ"_deva},
    {"tr", "Ç"_deva, "È"_deva},
    {"dg", "Ì"_deva, {}, SignPlace::Low},
    {"dgr", "Í"_deva, {}, SignPlace::Low},
    {"dgh", "˜"_deva, {}, SignPlace::Low},
    {"dd", "Î"_deva, {}, SignPlace::Low},
    {"ddh", "Ï"_deva, {}, SignPlace::Low},
    {"dn", "Ð"_deva, {}, SignPlace::Low},
    {"db", "Ó"_deva, {}, SignPlace::Low},
    {"dbh", "Ñ"_deva, {}, SignPlace::Low},
    {"dm", "Ò"_deva},
    {"dy", "*"_deva},
    {"dr", "Ô"_deva, {}, SignPlace::Low},
    {"dry", "Õ"_deva},
    {"dv", "Ö"_deva, {}, SignPlace::Low},
    {"dhn", "×"_deva},
    {"dhr", "Ø"_deva},
    {"nn", "Ú"_deva, "Û"_deva},
    {"nr", "Ü"_deva},
    {"ntr", "Ù"_deva},
    {"pt", "Ý"_deva, "Þ"_deva},
    {"pn", "ß"_deva},
    {"pr", "à"_deva},
    {"bj", "â"_deva},
    {"bn", "ã"_deva},
    {"br", "ä"_deva},
    {"bhn", "å"_deva},
    {"bhr", "æ"_deva},
    {"mn", "ç"_deva},
    {"mr", "è"_deva},
    {"ll", "‘"_deva},
    {"vn", "ë"_deva},
    {"vr", "ì"_deva},
    {"shch", "í"_deva},
    {"shn", "î"_deva},
    {"shr", "ï"_deva},
    {"shl", "ð"_deva},
    {"shv", "ñ"_deva},
    {"ShT", "ò"_deva, {}, SignPlace::Low},
    {"ShTh", "ó"_deva, {}, SignPlace::Low},
    {"str", "ô"_deva},
    {"sn", "õ"_deva},
    {"sr", "ö"_deva},
    {"hN", "Ÿ"_deva, {}, SignPlace::Low},
    {"hn", "û"_deva, {}, SignPlace::Low},
    {"hm", "ü"_deva},
    {"hy", "ý"_deva},
    {"hr", "ÿ"_deva, {}, SignPlace::Low},
    {"hl", "’"_deva, {}, SignPlace::Low},
    {"hv", "þ"_deva, {}, SignPlace::Low},
});

// A vowel, in the order of Sound: the glyphs that write it where no consonant precedes, and its sign by the place under
// the consonant.
struct VowelGlyphs {
    Sound sound;
    std::string_view independent;
    std::string_view sign;  // at the usual place
    std::string_view signRight = sign;
    std::string_view signLow = sign;
};

inline constexpr auto vowelGlyphs = std::to_array<VowelGlyphs>({
    {Sound::A, "A"_deva, ""_deva},
    {Sound::Aa, "Aa"_deva, "a"_deva},
    {Sound::I, "#"_deva, "i"_deva},  // the only sign that stands before its consonants
    {Sound::Ii, "$"_deva, "I"_deva},
    {Sound::U, "%"_deva, "u"_deva, "…"_deva, "‚"_deva},
    {Sound::Uu, "^"_deva, "U"_deva, "ª"_deva, "ƒ"_deva},
    {Sound::Ri, "\\"_deva, "&"_deva, "«"_deva, "¯"_deva},
    {Sound::E, "@"_deva, "e"_deva},
    {Sound::Ai, "@e"_deva, "E"_deva},
    {Sound::O, "Aae"_deva, "ae"_deva},
    {Sound::Au, "AaE"_deva, "aE"_deva},
    {Sound::CandraE, "A£"_deva, "£"_deva},
    {Sound::CandraO, "Aa£"_deva, "a£"_deva},
});

constexpr const VowelGlyphs& glyphsOf(Sound vowel) {
    return vowelGlyphs[static_cast<std::size_t>(vowel) - static_cast<std::size_t>(Sound::A)];
}

// Consonant and vowel sign in one glyph.
struct SyllableGlyph {
    Sound consonant;
    Sound vowel;
    std::string_view glyph;
};

inline constexpr auto syllableGlyphs = std::to_array<SyllableGlyph>({
    {Sound::Ra, Sound::U, "é"_deva},
    {Sound::Ra, Sound::Uu, "ê"_deva},
    {Sound::EyelashRa, Sound::U, "é"_deva},  // the nukta stands before it already
    {Sound::EyelashRa, Sound::Uu, "ê"_deva},
    {Sound::Da, Sound::U, "Ê"_deva},
    {Sound::Da, Sound::Uu, "Ë"_deva},
    {Sound::Da, Sound::Ri, "†"_deva},
    {Sound::Ha, Sound::U, "÷"_deva},
    {Sound::Ha, Sound::Uu, "ø"_deva},
    {Sound::Ha, Sound::Ri, "ù"_deva},
});

namespace glyph {
inline constexpr std::string_view yaForm = "("_deva;  // ya after what has no half form
inline constexpr std::string_view raForm = "+"_deva;  // ra under what has no conjunct with it
inline constexpr std::string_view reph = "R"_deva;
inline constexpr std::string_view rephAnusvara = "¡"_deva;
inline constexpr std::string_view anusvara = "<"_deva;
inline constexpr std::string_view anusvaraAfterIi = "—"_deva;
inline constexpr std::string_view candrabindu = "~"_deva;
inline constexpr std::string_view visarga = ">"_deva;
inline constexpr std::string_view virama = "!"_deva;
inline constexpr std::string_view nukta = "ˆ"_deva;
inline constexpr std::string_view nuktaBeforeDda = "–"_deva;  // and before Ddha
}  // namespace glyph

}  // namespace tolvan
