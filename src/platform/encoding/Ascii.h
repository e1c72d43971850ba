// The characters that mean the same in every 8-bit text: ASCII letters and digits, and line ends. Every other byte
// counts as it is: above 127 the same byte is a letter in one encoding and a glyph in another.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace tolvan {

constexpr bool isDigit(char c) {
    return c >= '0' && c <= '9';
}
constexpr bool isCapitalLetter(char c) {
    return c >= 'A' && c <= 'Z';
}
constexpr bool isSmallLetter(char c) {
    return c >= 'a' && c <= 'z';
}
constexpr bool isLetter(char c) {
    return isCapitalLetter(c) || isSmallLetter(c);
}

// The letter in the other case; any other character as it is.
constexpr char lowerLetter(char c) {
    return isCapitalLetter(c) ? static_cast<char>(c + ('a' - 'A')) : c;
}
constexpr char upperLetter(char c) {
    return isSmallLetter(c) ? static_cast<char>(c - ('a' - 'A')) : c;
}

inline std::string lowerCase(std::string_view text) {
    std::string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(), lowerLetter);
    return lower;
}

// Whether two names differ at most in the case of their letters.
constexpr bool sameButForCase(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return lowerLetter(x) == lowerLetter(y); });
}

inline constexpr int noDigit = 99;

// The value of a digit in any base up to 16, or `noDigit`, which is above every digit.
constexpr int digitValue(char c) {
    if (isDigit(c)) return c - '0';
    const char lower = lowerLetter(c);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : noDigit;
}

// The line end of program files, modules and data files. Reading takes a line feed alone for one, too.
inline constexpr std::string_view lineEnd = "\r\n";

struct Line {
    std::string_view text;
    std::string_view end;  // CR LF, LF, or empty after the last line
};

// Takes the first line, with its end, away from the front of `text`.
constexpr Line takeLine(std::string_view& text) {
    const std::size_t lineFeed = text.find('\n');
    const std::size_t size = lineFeed == std::string_view::npos ? text.size() : lineFeed + 1;
    const std::string_view whole = text.substr(0, size);
    text.remove_prefix(size);
    const std::size_t endSize = whole.ends_with(lineEnd) ? 2U : whole.ends_with('\n') ? 1U : 0U;
    return {whole.substr(0, size - endSize), whole.substr(size - endSize)};
}

}  // namespace tolvan
