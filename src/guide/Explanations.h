// What an error of a running program usually means, for somebody who has just met it: the one table for every number of
// the message table and of the script engine.
#pragma once

#include "guide/Finding.h"
#include "platform/richtext/StyledText.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tolvan::script {
struct ErrorReport;
}

namespace tolvan::guide {

// All but the last are Roman, as a user would type them.
struct Explanation {
    std::int32_t number;
    std::string_view meaning;  // a sentence on the cause and one on the cure
    std::string_view wrong;    // an example line of a program that fails so, and the same put right; equal where the
                               // line is not to blame, and no example is shown
    std::string_view right;
    std::string_view english;  // the meaning, for teachers who read no Marathi
};

enum class In : std::uint8_t { Marathi, English };

std::span<const Explanation> explanations();

// Null for a number that neither the message table nor the script engine has.
const Explanation* findExplanation(std::int32_t number);

// The message of an error as it is told, or a general one that has the number.
StyledText errorMessageText(std::int32_t number);

// The word of the program, in font codes, that a name of the script stands for; empty if there is none.
using WordOfName = std::function<std::string(std::string_view)>;

// The names and values that took part, where they are known, what the error usually means, and the example: lines of
// some fifteen words. Empty for a number without an explanation of which nothing else is known.
std::vector<StyledText> explain(const script::ErrorReport& error, const WordOfName& wordOf, In language = In::Marathi);

// How a run failed, as it is told.
struct RunFailure {
    std::size_t line = 0;  // of the program, from 1; 0: not known
    Columns program;       // of what failed, in the Devanagari line; empty: not known
    StyledText sentence;   // the line itself
    StyledText message;
    std::vector<StyledText> explanation;  // lines; may be empty
};

// `program` is its text, lines separated by CR LF.
RunFailure runFailure(const script::ErrorReport& error, int line, StyledView program, const WordOfName& wordOf);

}  // namespace tolvan::guide
