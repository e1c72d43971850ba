// From the Roman text that the user types to the program text that is shown and translated.
#pragma once

#include "platform/richtext/StyledText.h"

#include <string_view>

namespace tolvan {

// Words are transliterated, in the Devanagari font; the user's "#" spans and all punctuation stay as they are, in the
// Latin font. The "#" themselves are dropped. Lines are separated by CR LF.
StyledText Transliterate(std::string_view roman);

// The same for a whole program: two blanks follow it, so that its last word is ended. Without text there is none.
StyledText ProgramText(std::string_view roman);

}  // namespace tolvan
