// Decides what of a Roman text stays Latin. A "#" opens a Latin span and the next "#" closes it, also on a later line.
#pragma once

#include <string>
#include <string_view>

namespace tolvan {

// The text with a "#" on both sides of each punctuation character outside the user's own spans; spans that touch are
// one. A "#" that is never closed is dropped and what follows it is outside, so marks in the result always come in
// pairs.
std::string markRoman(std::string_view roman);

// True for the characters that the marking keeps Latin.
bool isRomanPunctuation(char character);

}  // namespace tolvan
