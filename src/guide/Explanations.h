// What an error of a running program usually means, for somebody who has just met it: the one table for every number of
// the message table and of the script engine.
#pragma once

#include "platform/richtext/StyledText.h"

#include <cstdint>
#include <span>
#include <string_view>

namespace tolvan::guide {

// All texts are Roman, as a user would type them.
struct Explanation {
    std::int32_t number;
    std::string_view meaning;  // a sentence on the cause and one on the cure
    std::string_view wrong;    // an example line of a program that fails so, and the same put right
    std::string_view right;
};

std::span<const Explanation> explanations();

// Null for a number that neither the message table nor the script engine has.
const Explanation* findExplanation(std::int32_t number);

// The message of an error as it is told, or a general one that has the number.
StyledText errorMessageText(std::int32_t number);

// What the error usually means, with the example; empty for a number without a row.
StyledText explain(std::int32_t number);

}  // namespace tolvan::guide
