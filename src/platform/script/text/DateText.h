// Dates as text in the documented United States form, and the names of days and months.
#pragma once

#include "platform/script/text/Calendar.h"

#include <string>
#include <string_view>

namespace tolvan::script {

std::string_view monthName(int month);      // 1: January
std::string_view weekdayName(int weekday);  // 1: Sunday
// Their first three letters.
std::string_view shortName(std::string_view name);

std::string shortDate(const Moment& moment);  // 2/28/2004
std::string longDate(const Moment& moment);   // Saturday, February 28, 2004
std::string longTime(const Moment& moment);   // 3:04:05 PM
std::string shortTime(const Moment& moment);  // 15:04

// As CStr writes it: date, time, or both.
std::string plainDate(double days);

}  // namespace tolvan::script
