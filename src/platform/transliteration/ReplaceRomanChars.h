// Transliteration of text of any length, in pieces that `convert` takes.
#pragma once

#include <string>
#include <string_view>

namespace tolvan {

// Text of any number of lines, separated by CR LF.
std::string ReplaceRomanChars(std::string_view text);

// One line. It is cut at its blanks into pieces, or, where none is near enough, in the middle of a word.
std::string LineConvert(std::string_view line);

}  // namespace tolvan
