// The calendar after Date values: the Gregorian one at all times, from year 100 to 9999. A Date counts days from
// 30 December 1899; its fraction is the time of day and counts forward also before that day (-1.25 is 6 o'clock in the
// morning of 29 December 1899).
#pragma once

#include <cstdint>

namespace tolvan::script {

struct CivilDay {
    std::int64_t year;
    int month;  // 1 to 12
    int day;    // 1 to 31
};

// A Date value taken apart, rounded to the second.
struct Moment {
    std::int64_t day;  // from 30 December 1899
    int second;        // of the day
};

inline constexpr std::int64_t firstDay = -657434;  // 1 January 100
inline constexpr std::int64_t lastDay = 2958465;   // 31 December 9999
inline constexpr int secondsADay = 86400;

std::int64_t dayOf(const CivilDay& civil);  // day may be beyond the month's; month may not
CivilDay civilOf(std::int64_t day);
bool isLeapYear(std::int64_t year);
int daysInMonth(std::int64_t year, int month);
// 1: Sunday.
int weekdayOf(std::int64_t day);
// 2029 from 29, 1930 from 30; other years as they are.
std::int64_t fullYear(std::int64_t year);

bool isDateInRange(double days);
Moment momentOf(double days);
double dateOf(const Moment& moment);
// The same for a count of seconds from the beginning of 30 December 1899.
double dateOfSeconds(std::int64_t seconds);

// Now, in the time zone of the system.
Moment localNow();
// Seconds since midnight with their fraction.
double secondsSinceMidnight();

}  // namespace tolvan::script
