#include "platform/script/text/DateText.h"

#include "platform/script/text/NumberWriting.h"

namespace tolvan::script {

namespace {

constexpr std::string_view monthNames[] = {"January", "February", "March",     "April",   "May",      "June",
                                           "July",    "August",   "September", "October", "November", "December"};
constexpr std::string_view weekdayNames[] = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                             "Thursday", "Friday", "Saturday"};

std::string decimal(std::int64_t number) {
    return std::string(writeWhole(number).view());
}

std::string twoDigits(int number) {
    return {static_cast<char>('0' + number / 10), static_cast<char>('0' + number % 10)};
}

}  // namespace

std::string_view monthName(int month) {
    return monthNames[month - 1];
}

std::string_view weekdayName(int weekday) {
    return weekdayNames[weekday - 1];
}

std::string_view shortName(std::string_view name) {
    return name.substr(0, 3);
}

std::string shortDate(const Moment& moment) {
    const CivilDay civil = civilOf(moment.day);
    return decimal(civil.month) + '/' + decimal(civil.day) + '/' + decimal(civil.year);
}

std::string longDate(const Moment& moment) {
    const CivilDay civil = civilOf(moment.day);
    std::string text(weekdayName(weekdayOf(moment.day)));
    text += ", ";
    text += monthName(civil.month);
    return text + ' ' + decimal(civil.day) + ", " + decimal(civil.year);
}

std::string longTime(const Moment& moment) {
    const int hour = moment.second / 3600;
    return decimal(hour % 12 == 0 ? 12 : hour % 12) + ':' + twoDigits(moment.second / 60 % 60) + ':' +
           twoDigits(moment.second % 60) + (hour < 12 ? " AM" : " PM");
}

std::string shortTime(const Moment& moment) {
    return twoDigits(moment.second / 3600) + ':' + twoDigits(moment.second / 60 % 60);
}

// Midnight is left out of a date, and day 0 out of a time.
std::string plainDate(double days) {
    const Moment moment = momentOf(days);
    if (moment.day == 0) return longTime(moment);
    if (moment.second == 0) return shortDate(moment);
    return shortDate(moment) + ' ' + longTime(moment);
}

}  // namespace tolvan::script
