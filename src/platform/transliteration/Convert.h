// Roman spelling in, the same text in the glyph codes of the Devanagari font out. What is spelled how, and which glyphs
// draw it, is data: Spellings.h and Glyphs.h.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tolvan {

inline constexpr std::size_t maxConvertLength = 200;  // characters a call

// Text of one piece, at most `maxConvertLength` characters, else std::length_error; LineConvert cuts longer text.
// Letters are converted, a tab becomes a blank, any other character is copied.
std::string convert(std::string_view roman);

// The same, appended to what `encoded` holds already.
void convert(std::string_view roman, std::string& encoded);

}  // namespace tolvan
