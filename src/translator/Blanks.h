// Trimming as the language means it: only blanks (code 32) count, neither tabs nor line ends.
#pragma once

#include "platform/richtext/StyledText.h"

#include <string_view>

namespace tolvan {

inline std::string_view trimBlanks(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

inline StyledView trimBlanks(StyledView text) {
    const std::size_t first = text.text().find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.text().find_last_not_of(' ') - first + 1);
}

}  // namespace tolvan
