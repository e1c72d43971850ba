// Text of the two fonts as Unicode, in UTF-8.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tolvan {

// Text in codes of the Devanagari font. It is in normal form C; what the font puts together of several glyphs is one
// character where Unicode has one; the logotype is the name that it reads. A code that draws nothing stands for its
// windows-1252 character. After a virama that is seen although the font could join the letters, a zero-width
// non-joiner keeps them apart.
std::string unicodeOfCodes(std::string_view codes);

// The same, appended to what `utf8` holds already.
void appendUnicodeOfCodes(std::string_view codes, std::string& utf8);

// Text in windows-1252, as that of the Latin font.
void appendUnicodeOfLatin(std::string_view text, std::string& utf8);

// The character of a pair that follow one another, a vowel or sign and a further sign; nothing where there is none.
std::optional<char32_t> composedVowel(char32_t first, char32_t second);

// A letter that has a character of its own with the nukta.
struct NuktaLetter {
    char32_t letter;
    char32_t withNukta;
    bool composed;  // normal form C has the one character; else the two
};
inline constexpr auto nuktaLetters = std::to_array<NuktaLetter>({
    {U'न', 0x0929, true},
    {U'र', 0x0931, true},
    {U'ळ', 0x0934, true},
    {U'क', 0x0958, false},
    {U'ख', 0x0959, false},
    {U'ग', 0x095A, false},
    {U'ज', 0x095B, false},
    {U'ड', 0x095C, false},
    {U'ढ', 0x095D, false},
    {U'फ', 0x095E, false},
    {U'य', 0x095F, false},
});

namespace devanagari {
inline constexpr char32_t first = 0x0900;  // of the block
inline constexpr char32_t last = 0x097F;
inline constexpr char32_t nukta = 0x093C;
inline constexpr char32_t virama = 0x094D;
inline constexpr char32_t nonJoiner = 0x200C;
inline constexpr char32_t joiner = 0x200D;
}  // namespace devanagari

constexpr bool isDevanagari(char32_t character) {
    return character >= devanagari::first && character <= devanagari::last;
}

constexpr bool isJoiner(char32_t character) {
    return character == devanagari::nonJoiner || character == devanagari::joiner;
}

}  // namespace tolvan
