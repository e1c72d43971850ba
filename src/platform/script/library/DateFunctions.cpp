// Today and now, the parts of a date, and dates made of parts.
#include "platform/script/library/FunctionArguments.h"
#include "platform/script/text/DateText.h"

namespace tolvan::script {

namespace {

Value now(Context&, ArgumentList) {
    return Value::date(dateOf(localNow()));
}

Value today(Context&, ArgumentList) {
    return Value::date(static_cast<double>(localNow().day));
}

Value timeNow(Context&, ArgumentList) {
    return Value::date(dateOf({0, localNow().second}));
}

Value timer(Context&, ArgumentList) {
    return Value::single(static_cast<float>(secondsSinceMidnight()));
}

int yearOf(const Moment& moment) {
    return static_cast<int>(civilOf(moment.day).year);
}
int monthOf(const Moment& moment) {
    return civilOf(moment.day).month;
}
int dayOfMonth(const Moment& moment) {
    return civilOf(moment.day).day;
}
int hourOf(const Moment& moment) {
    return moment.second / 3600;
}
int minuteOf(const Moment& moment) {
    return moment.second / 60 % 60;
}
int secondOf(const Moment& moment) {
    return moment.second % 60;
}

template <int (*part)(const Moment&)>
Value partOfDate(Context& context, ArgumentList arguments) {
    if (settle(context, arguments[0]).is(Type::Null)) return Value::null();
    return Value::integer(static_cast<std::int16_t>(part(momentOf(toDate(context, arguments[0])))));
}

// 1 (Sunday) to 7; 0, the system's first day of the week, is Sunday.
int firstWeekday(Context& context, ArgumentList arguments, std::size_t index) {
    if (!isGiven(arguments, index)) return 1;
    const int first = longWithin(context, arguments[index], 0, 7);
    return first == 0 ? 1 : first;
}

Value weekday(Context& context, ArgumentList arguments) {
    if (settle(context, arguments[0]).is(Type::Null)) return Value::null();
    const int first = firstWeekday(context, arguments, 1);
    const int day = weekdayOf(momentOf(toDate(context, arguments[0])).day);
    return Value::integer(static_cast<std::int16_t>((day - first + 7) % 7 + 1));
}

Value nameText(Context& context, std::string_view name, bool abbreviated) {
    return context.text(abbreviated ? shortName(name) : name);
}

// WeekdayName(weekday[, abbreviated[, first]]): the weekday counts from the first day of the week.
Value weekdayNameOf(Context& context, ArgumentList arguments) {
    const int number = longWithin(context, arguments[0], 1, 7);
    const bool abbreviated = booleanOr(context, arguments, 1, false);
    const int first = firstWeekday(context, arguments, 2);
    return nameText(context, weekdayName((number + first - 2) % 7 + 1), abbreviated);
}

Value monthNameOf(Context& context, ArgumentList arguments) {
    const int month = longWithin(context, arguments[0], 1, 12);
    return nameText(context, monthName(month), booleanOr(context, arguments, 1, false));
}

// Months and days beyond their range count on into other years and months.
Value dateSerial(Context& context, ArgumentList arguments) {
    const std::int64_t year = fullYear(toInteger(context, arguments[0]));
    const std::int64_t monthsFromZero = year * 12 + toInteger(context, arguments[1]) - 1;
    const std::int16_t day = toInteger(context, arguments[2]);
    const std::int64_t firstOfMonth =
        dayOf({(monthsFromZero + 12000000) / 12 - 1000000, static_cast<int>((monthsFromZero + 12000000) % 12) + 1, 1});
    const auto days = static_cast<double>(firstOfMonth + day - 1);
    if (!isDateInRange(days)) raise(errors::invalidCall);
    return Value::date(days);
}

Value timeSerial(Context& context, ArgumentList arguments) {
    const std::int64_t hours = toInteger(context, arguments[0]);
    const std::int64_t minutes = toInteger(context, arguments[1]);
    const std::int64_t seconds = toInteger(context, arguments[2]);
    return Value::date(dateOfSeconds(hours * 3600 + minutes * 60 + seconds));
}

Value dateValue(Context& context, ArgumentList arguments) {
    return Value::date(static_cast<double>(momentOf(toDate(context, arguments[0])).day));
}

Value timeValue(Context& context, ArgumentList arguments) {
    if (settle(context, arguments[0]).is(Type::Null)) return Value::null();
    return Value::date(dateOf({0, momentOf(toDate(context, arguments[0])).second}));
}

constexpr Builtin functions[] = {
    {"Date", 0, 0, today},
    {"DateSerial", 3, 3, dateSerial},
    {"DateValue", 1, 1, dateValue},
    {"Day", 1, 1, partOfDate<dayOfMonth>},
    {"Hour", 1, 1, partOfDate<hourOf>},
    {"Minute", 1, 1, partOfDate<minuteOf>},
    {"Month", 1, 1, partOfDate<monthOf>},
    {"MonthName", 1, 2, monthNameOf},
    {"Now", 0, 0, now},
    {"Second", 1, 1, partOfDate<secondOf>},
    {"Time", 0, 0, timeNow},
    {"TimeSerial", 3, 3, timeSerial},
    {"TimeValue", 1, 1, timeValue},
    {"Timer", 0, 0, timer},
    {"Weekday", 1, 2, weekday},
    {"WeekdayName", 1, 3, weekdayNameOf},
    {"Year", 1, 1, partOfDate<yearOf>},
};

}  // namespace

std::span<const Builtin> dateFunctions() {
    return functions;
}

}  // namespace tolvan::script
