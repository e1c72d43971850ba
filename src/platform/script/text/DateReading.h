// Dates and times read from text.
#pragma once

#include <optional>
#include <string_view>

namespace tolvan::script {

// The days of a text as a date or time ("2/28/2004 3:04 PM", "1-Mar-99"); nothing if it is none.
std::optional<double> parseDate(std::string_view text);

}  // namespace tolvan::script
