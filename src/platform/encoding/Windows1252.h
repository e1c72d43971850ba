// Font-encoded text is 8-bit; where it meets Unicode (Qt, source literals), a byte stands for the character that
// windows-1252 gives it, and back. Source of the table: the Unicode Consortium's mapping CP1252.TXT.
#pragma once

#include <array>
#include <cstdint>
#include <optional>

namespace tolvan {

// The characters of codes 128 to 159. The five codes that windows-1252 leaves undefined (129, 141, 143, 144, 157)
// are the control characters of the same number.
inline constexpr std::array<char16_t, 32> windows1252High = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr char16_t windows1252ToUnicode(std::uint8_t code) {
    return code >= 128 && code < 160 ? windows1252High[code - 128U] : char16_t{code};
}

// The code of a character, or nothing where windows-1252 has none for it.
constexpr std::optional<std::uint8_t> unicodeToWindows1252(char32_t character) {
    if (character < 128 || (character >= 160 && character < 256)) return static_cast<std::uint8_t>(character);
    for (std::size_t i = 0; i < windows1252High.size(); ++i)
        if (windows1252High[i] == character) return static_cast<std::uint8_t>(128 + i);
    return std::nullopt;
}

}  // namespace tolvan
