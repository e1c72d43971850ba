// Numbers read from text as plain VBScript does, without the engine's text form.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace tolvan::script {

// A text as a number (15E3, &HFF, " 12 "): Double, as CDbl reads it; nothing if it is none, infinity if it is too
// large.
std::optional<double> parseNumber(std::string_view text);
// A text that begins (after blanks) like &HFF or &O17: its value as written, which the conversions to whole numbers
// take as the bits of one.
std::optional<double> parseBitPattern(std::string_view text);
// The ten-thousandths of a number's text, exact; nothing if it is none or out of range. parseNumber tells which.
std::optional<std::int64_t> parseCurrency(std::string_view text);

}  // namespace tolvan::script
