// FormatNumber, FormatCurrency, FormatPercent, FormatDateTime, as documented for the United States. The results go
// through the engine's text form like every other number and date that becomes a text.
#include "platform/script/library/FunctionArguments.h"
#include "platform/script/text/DateText.h"
#include "platform/script/text/NumberWriting.h"

#include <string>

namespace tolvan::script {

namespace {

struct NumberStyle {
    std::string_view front;  // "$"
    std::string_view back;   // "%"
    bool brackets;           // around negative numbers, in place of the minus
    int shift;               // how many places the point moves to the right
};

// A number written without exponent: its digits before and after the point.
struct FixedPoint {
    std::string whole;  // empty below 1
    std::string fraction;
    bool negative;
};

// The 15 digits of the number, cut to `decimals` after the point; a half is rounded up.
FixedPoint fixedPoint(const Digits& digits, int decimals) {
    std::string text(digits.bytes, static_cast<std::size_t>(digits.count));
    int point = digits.point;
    if (point < 0) {
        text.insert(0, static_cast<std::size_t>(-point), '0');
        point = 0;
    }
    const auto size = static_cast<std::size_t>(point) + static_cast<std::size_t>(decimals);
    const bool up = size < text.size() && text[size] >= '5';
    text.resize(size, '0');
    std::size_t last = size;
    while (up && last > 0 && text[last - 1] == '9') text[--last] = '0';
    if (up && last > 0) ++text[last - 1];
    if (up && last == 0) {
        text.insert(text.begin(), '1');
        ++point;
    }
    FixedPoint number{text.substr(0, static_cast<std::size_t>(point)), text.substr(static_cast<std::size_t>(point)),
                      false};
    number.negative = digits.negative && text.find_first_not_of('0') != std::string::npos;
    return number;
}

std::string grouped(const std::string& whole) {
    std::string text;
    for (std::size_t i = 0; i < whole.size(); ++i) {
        if (i > 0 && (whole.size() - i) % 3 == 0) text += ',';
        text += whole[i];
    }
    return text;
}

// vbTrue, vbFalse or vbUseDefault; raises 5 for anything else.
bool triStateAt(Context& context, ArgumentList arguments, std::size_t index, bool standard) {
    if (!isGiven(arguments, index)) return standard;
    const std::int32_t state = longWithin(context, arguments[index], -2, 0);
    return state == -2 ? standard : state == -1;
}

// FormatXxx(number[, decimals[, leading zero[, brackets[, groups]]]]); decimals -1: the standard 2.
Value formatted(Context& context, ArgumentList arguments, const NumberStyle& style) {
    const Value& number = settle(context, arguments[0]);
    Digits digits = number.is(Type::Currency) ? digitsOfCurrency(number.as.c) : digitsOf(toDouble(context, number));
    if (digits.count > 0) digits.point += style.shift;
    const int decimals = isGiven(arguments, 1) ? longWithin(context, arguments[1], -1, 255) : -1;
    const bool leadingZero = triStateAt(context, arguments, 2, true);
    const bool brackets = triStateAt(context, arguments, 3, style.brackets);
    const bool groups = triStateAt(context, arguments, 4, true);

    const FixedPoint fixed = fixedPoint(digits, decimals < 0 ? 2 : decimals);
    std::string text;
    if (fixed.negative) text += brackets ? '(' : '-';
    text += style.front;
    if (fixed.whole.empty() && (leadingZero || fixed.fraction.empty())) text += '0';
    text += groups ? grouped(fixed.whole) : fixed.whole;
    if (!fixed.fraction.empty()) text += '.';
    text += fixed.fraction;
    text += style.back;
    if (fixed.negative && brackets) text += ')';
    return context.text(context.textForm().number(text));
}

Value formatNumber(Context& context, ArgumentList arguments) {
    return formatted(context, arguments, {"", "", false, 0});
}

Value formatCurrency(Context& context, ArgumentList arguments) {
    return formatted(context, arguments, {"$", "", true, 0});
}

Value formatPercent(Context& context, ArgumentList arguments) {
    return formatted(context, arguments, {"", "%", false, 2});
}

std::string formattedDate(int form, double days) {
    const Moment moment = momentOf(days);
    switch (form) {
        case 1:
            return longDate(moment);
        case 2:
            return shortDate(moment);
        case 3:
            return longTime(moment);
        case 4:
            return shortTime(moment);
        default:
            return plainDate(days);
    }
}

// FormatDateTime(date[, form]): vbGeneralDate to vbShortTime.
Value formatDateTime(Context& context, ArgumentList arguments) {
    const int form = isGiven(arguments, 1) ? longWithin(context, arguments[1], 0, 4) : 0;
    return context.text(context.textForm().date(formattedDate(form, toDate(context, arguments[0]))));
}

constexpr Builtin functions[] = {
    {"FormatCurrency", 1, 5, formatCurrency},
    {"FormatDateTime", 1, 2, formatDateTime},
    {"FormatNumber", 1, 5, formatNumber},
    {"FormatPercent", 1, 5, formatPercent},
};

}  // namespace

std::span<const Builtin> formatFunctions() {
    return functions;
}

}  // namespace tolvan::script
