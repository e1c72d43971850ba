// Program text for tests in the internal text form: Latin runs stand in braces.
#pragma once

#include "platform/richtext/InternalText.h"

namespace tolvan {

// "x{=}1": a word, a Latin mark, a digit.
inline StyledText styled(std::string_view internal) {
    StyledText text;
    for (const InternalTextRun& run : InternalTextRuns(internal)) text.append(run.text, run.font);
    return text;
}

}  // namespace tolvan
