#include "platform/script/text/Calendar.h"

#include "platform/process/LocalTime.h"

#include <chrono>
#include <cmath>
#include <ctime>

namespace tolvan::script {

namespace {

// Years are counted from 1 March here, so that the leap day is the last of its year; 400 of them are an era.
constexpr std::int64_t daysAnEra = 146097;
// 30 December 1899, counted from 1 March of year 0.
constexpr std::int64_t epoch = 693899;

std::int64_t floorDivide(std::int64_t a, std::int64_t b) {
    return a / b - (a % b < 0 ? 1 : 0);
}

std::tm localTime(std::chrono::system_clock::time_point now) {
    const std::time_t seconds = std::chrono::system_clock::to_time_t(now);
    return localTimeOf(seconds);
}

}  // namespace

std::int64_t dayOf(const CivilDay& civil) {
    const std::int64_t year = civil.year - (civil.month <= 2 ? 1 : 0);
    const std::int64_t era = floorDivide(year, 400);
    const std::int64_t yearOfEra = year - era * 400;
    const std::int64_t monthFromMarch = (civil.month + 9) % 12;
    // (153 m + 2) / 5: the days in the m months from March on, which come in a pattern of five.
    const std::int64_t dayOfYear = (153 * monthFromMarch + 2) / 5 + civil.day - 1;
    const std::int64_t dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear;
    return era * daysAnEra + dayOfEra - epoch;
}

CivilDay civilOf(std::int64_t day) {
    const std::int64_t days = day + epoch;
    const std::int64_t era = floorDivide(days, daysAnEra);
    const std::int64_t dayOfEra = days - era * daysAnEra;
    const std::int64_t yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
    const std::int64_t dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const std::int64_t monthFromMarch = (5 * dayOfYear + 2) / 153;
    const int month = static_cast<int>(monthFromMarch < 10 ? monthFromMarch + 3 : monthFromMarch - 9);
    const std::int64_t year = era * 400 + yearOfEra + (month <= 2 ? 1 : 0);
    return {year, month, static_cast<int>(dayOfYear - (153 * monthFromMarch + 2) / 5 + 1)};
}

bool isLeapYear(std::int64_t year) {
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

int daysInMonth(std::int64_t year, int month) {
    if (month == 2) return isLeapYear(year) ? 29 : 28;
    return month == 4 || month == 6 || month == 9 || month == 11 ? 30 : 31;
}

int weekdayOf(std::int64_t day) {
    // 30 December 1899 was a Saturday.
    return static_cast<int>(((day + 6) % 7 + 7) % 7) + 1;
}

std::int64_t fullYear(std::int64_t year) {
    if (year < 0 || year > 99) return year;
    return year + (year < 30 ? 2000 : 1900);
}

bool isDateInRange(double days) {
    return days > static_cast<double>(firstDay - 1) && days < static_cast<double>(lastDay + 1);
}

Moment momentOf(double days) {
    const double whole = std::trunc(days);
    Moment moment{static_cast<std::int64_t>(whole),
                  static_cast<int>(std::lround(std::abs(days - whole) * secondsADay))};
    if (moment.second == secondsADay && moment.day != lastDay) {
        ++moment.day;
        moment.second = 0;
    } else if (moment.second == secondsADay) {
        --moment.second;
    }
    return moment;
}

double dateOf(const Moment& moment) {
    const double time = static_cast<double>(moment.second) / secondsADay;
    const auto day = static_cast<double>(moment.day);
    return moment.day < 0 ? day - time : day + time;
}

double dateOfSeconds(std::int64_t seconds) {
    const std::int64_t day = floorDivide(seconds, secondsADay);
    return dateOf({day, static_cast<int>(seconds - day * secondsADay)});
}

Moment localNow() {
    const std::tm now = localTime(std::chrono::system_clock::now());
    const std::int64_t day = dayOf({std::int64_t{now.tm_year} + 1900, now.tm_mon + 1, now.tm_mday});
    // A leap second counts as the second before it.
    return {day, now.tm_hour * 3600 + now.tm_min * 60 + (now.tm_sec < 60 ? now.tm_sec : 59)};
}

double secondsSinceMidnight() {
    const auto now = std::chrono::system_clock::now();
    const std::tm broken = localTime(now);
    const auto fraction = now.time_since_epoch() % std::chrono::seconds(1);
    return broken.tm_hour * 3600 + broken.tm_min * 60 + broken.tm_sec + std::chrono::duration<double>(fraction).count();
}

}  // namespace tolvan::script
