// What a program receives for a line that was typed for it.
#pragma once

#include <string>
#include <string_view>

namespace tolvan {

// The Roman line, transliterated, in internal text form: "mI BASIC" with "#" around the last word is "mI {BASIC}" in
// Devanagari glyphs, "-5" is "{-}5". Of any length.
std::string inputValue(std::string_view typed);

}  // namespace tolvan
