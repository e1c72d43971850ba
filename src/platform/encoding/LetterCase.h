// Names that are the same but for the case of their ASCII letters. Every other byte counts as it is: above 127 the same
// byte is a letter in one encoding and a glyph in another.
#pragma once

#include <algorithm>
#include <string_view>

namespace tolvan {

inline bool sameButForCase(std::string_view a, std::string_view b) {
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [lower](char x, char y) { return lower(x) == lower(y); });
}

}  // namespace tolvan
