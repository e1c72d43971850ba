// Program text for tests in the internal text form: Latin runs stand in braces.
#pragma once

#include "platform/richtext/StyledText.h"

#include <string_view>

namespace tolvan {

// "x{=}1": a word, a Latin mark, a digit. "\{" and "\}" are braces themselves.
inline StyledText styled(std::string_view internal) {
    StyledText text;
    Font font = Font::Devanagari;
    for (std::size_t i = 0; i < internal.size(); ++i) {
        const char c = internal[i];
        if (c == '{' || c == '}')
            font = c == '{' ? Font::Latin : Font::Devanagari;
        else if (c == '\\' && i + 1 < internal.size() && (internal[i + 1] == '{' || internal[i + 1] == '}'))
            text.append(internal.substr(++i, 1), font);
        else
            text.append(internal.substr(i, 1), font);
    }
    return text;
}

}  // namespace tolvan
