// DateAdd, DateDiff, DatePart: dates in intervals named "yyyy", "q", "m", "y", "d", "w", "ww", "h", "n", "s".
#include "platform/script/library/FunctionArguments.h"
#include "platform/script/text/Calendar.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace tolvan::script {

namespace {

enum class Interval { Year, Quarter, Month, DayOfYear, Day, Weekday, Week, Hour, Minute, Second };

struct IntervalRow {
    std::string_view name;
    Interval interval;
};

constexpr IntervalRow intervalRows[] = {
    {"yyyy", Interval::Year}, {"q", Interval::Quarter}, {"m", Interval::Month}, {"y", Interval::DayOfYear},
    {"d", Interval::Day},     {"w", Interval::Weekday}, {"ww", Interval::Week}, {"h", Interval::Hour},
    {"n", Interval::Minute},  {"s", Interval::Second},
};

Interval intervalOf(Context& context, const Value& argument) {
    Value keep;
    const std::string_view name = toTextView(context, argument, keep);
    for (const IntervalRow& row : intervalRows) {
        const bool same = std::equal(name.begin(), name.end(), row.name.begin(), row.name.end(),
                                     [](char a, char b) { return lowerLetter(a) == b; });
        if (same) return row.interval;
    }
    raise(errors::invalidCall);
}

Moment momentArgument(Context& context, const Value& argument) {
    return momentOf(toDate(context, argument));
}

std::int64_t secondsOf(const Moment& moment) {
    return moment.day * secondsADay + moment.second;
}

// Months counted on from January of year 0.
std::int64_t monthsOf(const CivilDay& civil) {
    return civil.year * 12 + civil.month - 1;
}

// The last day of a month stands for the days that it does not have.
std::int64_t addMonths(std::int64_t day, std::int64_t months) {
    CivilDay civil = civilOf(day);
    const std::int64_t sum = monthsOf(civil) + months;
    constexpr std::int64_t firstMonth = std::int64_t{100} * 12;
    constexpr std::int64_t lastMonth = std::int64_t{9999} * 12 + 11;
    if (sum < firstMonth || sum > lastMonth) raise(errors::invalidCall);
    civil.year = sum / 12;
    civil.month = static_cast<int>(sum % 12) + 1;
    civil.day = std::min(civil.day, daysInMonth(civil.year, civil.month));
    return dayOf(civil);
}

double addInterval(Interval interval, std::int64_t number, Moment moment) {
    switch (interval) {
        case Interval::Year:
            moment.day = addMonths(moment.day, number * 12);
            break;
        case Interval::Quarter:
            moment.day = addMonths(moment.day, number * 3);
            break;
        case Interval::Month:
            moment.day = addMonths(moment.day, number);
            break;
        case Interval::DayOfYear:
        case Interval::Day:
        case Interval::Weekday:
            moment.day += number;
            break;
        case Interval::Week:
            moment.day += number * 7;
            break;
        case Interval::Hour:
            return dateOfSeconds(secondsOf(moment) + number * 3600);
        case Interval::Minute:
            return dateOfSeconds(secondsOf(moment) + number * 60);
        case Interval::Second:
            return dateOfSeconds(secondsOf(moment) + number);
    }
    return dateOf(moment);
}

// DateAdd(interval, number, date): a fraction of the number is rounded.
Value dateAdd(Context& context, ArgumentList arguments) {
    const Interval interval = intervalOf(context, arguments[0]);
    const std::int32_t number = toLong(context, arguments[1]);
    if (settle(context, arguments[2]).is(Type::Null)) return Value::null();
    const double sum = addInterval(interval, number, momentArgument(context, arguments[2]));
    if (!isDateInRange(sum)) raise(errors::invalidCall);
    return Value::date(sum);
}

// The first day of the week (1: Sunday) and the rule for the first week of the year.
struct WeekRule {
    int firstDay = 1;
    int firstWeek = 1;  // vbFirstJan1, vbFirstFourDays, vbFirstFullWeek
};

// 0 stands for the system's rule, which is that of an argument left out.
WeekRule weekRuleAt(Context& context, ArgumentList arguments, std::size_t index) {
    WeekRule rule;
    if (isGiven(arguments, index)) rule.firstDay = std::max(1, longWithin(context, arguments[index], 0, 7));
    if (isGiven(arguments, index + 1)) rule.firstWeek = std::max(1, longWithin(context, arguments[index + 1], 0, 3));
    return rule;
}

std::int64_t beginOfWeek(std::int64_t day, const WeekRule& rule) {
    return day - (weekdayOf(day) - rule.firstDay + 7) % 7;
}

std::int64_t beginOfFirstWeek(std::int64_t year, const WeekRule& rule) {
    const std::int64_t newYear = dayOf({year, 1, 1});
    const std::int64_t begin = beginOfWeek(newYear, rule);
    const std::int64_t daysInYear = begin + 7 - newYear;
    constexpr int neededDays[] = {1, 4, 7};
    return daysInYear >= neededDays[rule.firstWeek - 1] ? begin : begin + 7;
}

// Days before the first week belong to the last of the year before, and days at the end of December may belong to the
// first week of the next year. With vbFirstJan1 a week that the year's end divides is two weeks.
int weekOfYear(std::int64_t day, const WeekRule& rule) {
    std::int64_t year = civilOf(day).year;
    if (rule.firstWeek != 1 && day >= beginOfFirstWeek(year + 1, rule)) return 1;
    if (day < beginOfFirstWeek(year, rule)) --year;
    return static_cast<int>((day - beginOfFirstWeek(year, rule)) / 7) + 1;
}

// How many borders between intervals lie between two moments; "w" counts whole weeks.
std::int64_t difference(Interval interval, const Moment& from, const Moment& to, const WeekRule& rule) {
    const CivilDay first = civilOf(from.day);
    const CivilDay last = civilOf(to.day);
    const auto hours = [](const Moment& moment) { return moment.day * 24 + moment.second / 3600; };
    const auto minutes = [](const Moment& moment) { return moment.day * 1440 + moment.second / 60; };
    switch (interval) {
        case Interval::Year:
            return last.year - first.year;
        case Interval::Quarter:
            return monthsOf(last) / 3 - monthsOf(first) / 3;
        case Interval::Month:
            return monthsOf(last) - monthsOf(first);
        case Interval::Weekday:
            return (to.day - from.day) / 7;
        case Interval::Week:
            return (beginOfWeek(to.day, rule) - beginOfWeek(from.day, rule)) / 7;
        case Interval::Hour:
            return hours(to) - hours(from);
        case Interval::Minute:
            return minutes(to) - minutes(from);
        case Interval::Second:
            return secondsOf(to) - secondsOf(from);
        default:
            return to.day - from.day;
    }
}

// DateDiff(interval, from, to[, first day of week[, first week of year]])
Value dateDiff(Context& context, ArgumentList arguments) {
    const Interval interval = intervalOf(context, arguments[0]);
    const WeekRule rule = weekRuleAt(context, arguments, 3);
    if (settle(context, arguments[1]).is(Type::Null) || settle(context, arguments[2]).is(Type::Null))
        return Value::null();
    const std::int64_t count =
        difference(interval, momentArgument(context, arguments[1]), momentArgument(context, arguments[2]), rule);
    if (static_cast<std::int32_t>(count) != count) raise(errors::overflow);
    return Value::longInteger(static_cast<std::int32_t>(count));
}

int partOfMoment(Interval interval, const Moment& moment, const WeekRule& rule) {
    const CivilDay civil = civilOf(moment.day);
    switch (interval) {
        case Interval::Year:
            return static_cast<int>(civil.year);
        case Interval::Quarter:
            return (civil.month - 1) / 3 + 1;
        case Interval::Month:
            return civil.month;
        case Interval::DayOfYear:
            return static_cast<int>(moment.day - dayOf({civil.year, 1, 1})) + 1;
        case Interval::Day:
            return civil.day;
        case Interval::Weekday:
            return static_cast<int>(moment.day - beginOfWeek(moment.day, rule)) + 1;
        case Interval::Week:
            return weekOfYear(moment.day, rule);
        case Interval::Hour:
            return moment.second / 3600;
        case Interval::Minute:
            return moment.second / 60 % 60;
        default:
            return moment.second % 60;
    }
}

// DatePart(interval, date[, first day of week[, first week of year]])
Value datePart(Context& context, ArgumentList arguments) {
    const Interval interval = intervalOf(context, arguments[0]);
    const WeekRule rule = weekRuleAt(context, arguments, 2);
    if (settle(context, arguments[1]).is(Type::Null)) return Value::null();
    const int part = partOfMoment(interval, momentArgument(context, arguments[1]), rule);
    return Value::integer(static_cast<std::int16_t>(part));
}

constexpr Builtin functions[] = {
    {"DateAdd", 3, 3, dateAdd},
    {"DateDiff", 3, 5, dateDiff},
    {"DatePart", 2, 4, datePart},
};

}  // namespace

std::span<const Builtin> dateArithmeticFunctions() {
    return functions;
}

}  // namespace tolvan::script
