// Text of both fonts as Unicode, in UTF-8: Devanagari as it reads, Latin runs as they are.
#pragma once

#include "platform/richtext/StyledText.h"

#include <string>
#include <string_view>

namespace tolvan {

// Every font but the Devanagari one counts as Latin.
std::string unicodeOf(StyledView text);

// Text in internal text form, without its run marks.
std::string unicodeOfInternalText(std::string_view text);

}  // namespace tolvan
