// Stands in for the marking of styled text until platform/richtext has it.
#pragma once

#include "platform/richtext/StyledText.h"

#include <string>

namespace tolvan {

inline std::string RomanMark(StyledView text) {
    std::string marked;
    bool latin = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (latin != (text.font(i) != Font::Devanagari)) {
            marked += latin ? '}' : '{';
            latin = !latin;
        }
        if (text[i] == '{' || text[i] == '}') marked += '\\';
        marked += text[i];
    }
    if (latin) marked += '}';
    return marked;
}

}  // namespace tolvan
