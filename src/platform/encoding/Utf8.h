// UTF-8, character by character.
#pragma once

#include <string>
#include <string_view>

namespace tolvan {

// What stands for bytes that are no UTF-8.
inline constexpr char32_t replacementCharacter = 0xFFFD;

// The character at the front of `utf8`, which is cut off. A byte that begins no character is cut off alone and is the
// replacement character. `utf8` is not empty.
char32_t takeCharacter(std::string_view& utf8);

inline char32_t firstCharacter(std::string_view utf8) {
    return takeCharacter(utf8);
}

// What is no Unicode character is written as the replacement character.
void appendUtf8(char32_t character, std::string& utf8);

bool isUtf8(std::string_view text);

}  // namespace tolvan
