// Program text in Unicode, as it comes from the clipboard or from a file, as the Roman text that stands for it.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tolvan {

struct RomanProgram {
    std::string roman;       // 8-bit, lines separated by CR LF
    std::u32string leftOut;  // the characters that have no place in a program, each once, in their order
};

// What a keyboard has for a typographic quote, dash or blank, which other applications write; empty for any other
// character.
std::string_view keyboardMarks(char32_t character);

// Line by line. A line without Devanagari stays as it is. In the others Devanagari is spelled, the words of the
// language as they are typed; Latin letters and the quotes of texts get their "#"; typographic quotes and dashes are
// the plain ones.
RomanProgram romanOfUnicodeProgram(std::string_view utf8);

// A file in Unicode as UTF-8 without its mark: UTF-8 and UTF-16 with a mark, and UTF-8 without one if there is
// Devanagari in it. Nothing for any other bytes.
std::optional<std::string> unicodeFileText(std::string_view bytes);

// Whether a Roman line begins with a word of the language or sets a variable: no caption does.
bool isStatement(std::string_view roman);

// Program text in Unicode, lines ended by LF.
std::string unicodeOfProgram(std::string_view roman);

}  // namespace tolvan
