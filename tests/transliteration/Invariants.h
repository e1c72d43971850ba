// What must hold for any Roman text, whether a fuzzer or a random generator made it.
#pragma once

#include "platform/transliteration/MarkRoman.h"
#include "translator/ProgramText.h"

#include <algorithm>
#include <string>

namespace tolvan {

inline std::string withoutMarks(std::string text) {
    std::erase(text, '#');
    return text;
}

inline bool isMarkedWell(std::string_view roman) {
    const std::string marked = markRoman(roman);
    bool span = false;
    for (const char character : marked) {
        if (character == '#')
            span = !span;
        else if (!span && isRomanPunctuation(character))
            return false;
    }
    return !span && marked.find("##") == std::string::npos &&
           withoutMarks(marked) == withoutMarks(std::string(roman)) && markRoman(marked) == marked;
}

// The Latin characters of the program text are those between the marks, in their order.
inline bool keepsLatin(std::string_view roman) {
    std::string expected;
    bool span = false;
    for (const char character : markRoman(roman)) {
        if (character == '#')
            span = !span;
        else if (span)
            expected += character;
    }
    const StyledText text = Transliterate(roman);
    std::string latin;
    for (std::size_t i = 0; i < text.size(); ++i)
        if (text.font(i) == Font::Latin) latin += text.text()[i];
    return latin == expected;
}

// Line breaks outside the marks stay line breaks, and what stands before one is not changed by what follows it.
inline bool linesStandAlone(std::string_view roman) {
    const StyledText whole = Transliterate(roman);
    const std::size_t end = roman.find("\r\n");
    if (end == std::string_view::npos ||
        std::count(roman.begin(), roman.begin() + static_cast<std::ptrdiff_t>(end), '#') % 2 != 0)
        return true;
    StyledText parts = Transliterate(roman.substr(0, end));
    parts.append("\r\n", Font::Devanagari);
    parts.append(Transliterate(roman.substr(end + 2)));
    return parts == whole;
}

}  // namespace tolvan
