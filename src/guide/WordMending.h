// Words that are put right without asking.
#pragma once

#include <string>
#include <string_view>

namespace tolvan::guide {

// The one word of the language that a word of the program equals when short and long i and u, the anusvara and n or m
// before a consonant, and single and doubled letters are taken as the same; empty if there is none, or if it is right.
std::string_view wordToPut(std::string_view typed);

// Whether a text gives a value to a word, or has a function of its name, in another line than `line` (from 0).
bool isNameOf(std::string_view roman, std::string_view word, std::size_t line);

// Whether what is typed after the beginning of a line stands in a text or a comment.
bool isInTextOrComment(std::string_view beginning);

}  // namespace tolvan::guide
