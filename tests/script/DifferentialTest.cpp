// Arithmetic, conversions and text functions on random operands against calculations that are made in another way:
// wider types, the C library's number formatting, naive searching.
#include "platform/script/Builtin.h"
#include "platform/script/Conversions.h"
#include "platform/script/Operators.h"
#include "platform/script/text/Calendar.h"
#include "platform/script/text/DateReading.h"
#include "platform/script/text/DateText.h"
#include "platform/script/text/NumberReading.h"
#include "platform/script/text/NumberWriting.h"

#include <algorithm>
#include <bit>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace tolvan::testing {
namespace {

using script::Type;
using script::Value;

__extension__ typedef __int128 Wide;
__extension__ typedef __float128 Quad;

class Differential : public ::testing::Test {
  protected:
    Value call(std::string_view name, std::vector<Value> arguments) {
        for (const auto& row : script::builtins())
            if (row.name == name) return row.function(context, arguments);
        ADD_FAILURE() << "no function " << name;
        return {};
    }
    std::string text(std::string_view name, std::vector<Value> arguments) {
        return std::string(call(name, std::move(arguments)).view());
    }
    std::int64_t below(std::int64_t limit) {
        return static_cast<std::int64_t>(random() % static_cast<std::uint64_t>(limit));
    }

    // Of any size, often near a power of two, where types end.
    std::int32_t anyLong() {
        const auto bits = static_cast<std::uint32_t>(random());
        return static_cast<std::int32_t>(bits) >> below(32);
    }
    double anyDouble() {
        for (;;) {
            const auto number = std::bit_cast<double>(random());
            if (std::isfinite(number)) return number;
        }
    }
    double commonDouble() { return static_cast<double>(anyLong()) / std::pow(10.0, static_cast<double>(below(8))); }

    script::Context context;
    std::mt19937_64 random{20};
};

// A number as "Type value" with all its digits, or the error.
template <class Calculate>
std::string shown(Calculate calculate) {
    char buffer[64];
    try {
        const Value value = calculate();
        switch (value.type()) {
            case Type::Byte:
            case Type::Integer:
            case Type::Long:
            case Type::Boolean:
                std::snprintf(buffer, sizeof buffer, "%u: %d", value.tag, value.as.i);
                break;
            case Type::Single:
                std::snprintf(buffer, sizeof buffer, "%u: %.9g", value.tag, double{value.as.f});
                break;
            case Type::Currency:
                std::snprintf(buffer, sizeof buffer, "%u: %lld", value.tag, static_cast<long long>(value.as.c));
                break;
            default:
                std::snprintf(buffer, sizeof buffer, "%u: %.17g", value.tag, value.as.d);
        }
    } catch (const script::ScriptError& error) {
        std::snprintf(buffer, sizeof buffer, "error %d", error.number);
    }
    return buffer;
}

// The types with whole numbers by size, and the smallest of them that holds a result.
Value smallest(std::size_t least, Wide number) {
    if (least == 0 && number >= 0 && number < 256) return Value::byte(static_cast<std::uint8_t>(number));
    if (least <= 1 && number >= -32768 && number < 32768) return Value::integer(static_cast<std::int16_t>(number));
    if (number >= -2147483648LL && number < 2147483648LL) return Value::longInteger(static_cast<std::int32_t>(number));
    return Value::number(static_cast<double>(number));
}

Value wholeOperand(std::size_t size, std::int32_t number) {
    if (size == 0) return Value::byte(static_cast<std::uint8_t>(number));
    if (size == 1) return Value::integer(static_cast<std::int16_t>(number));
    return Value::longInteger(number);
}

TEST_F(Differential, WholeNumbersGrowIntoTheNextTypeThatHoldsThem) {
    for (int i = 0; i < 200000; ++i) {
        const auto leftSize = static_cast<std::size_t>(below(3));
        const auto rightSize = static_cast<std::size_t>(below(3));
        const Value left = wholeOperand(leftSize, anyLong());
        const Value right = wholeOperand(rightSize, anyLong());
        const std::size_t size = std::max(leftSize, rightSize);
        const Wide a = left.as.i;
        const Wide b = right.as.i;
        SCOPED_TRACE(std::to_string(left.as.i) + " and " + std::to_string(right.as.i));
        ASSERT_EQ(shown([&] { return script::add(context, left, right); }),
                  shown([&] { return smallest(size, a + b); }));
        ASSERT_EQ(shown([&] { return script::subtract(context, left, right); }),
                  shown([&] { return smallest(size, a - b); }));
        ASSERT_EQ(shown([&] { return script::multiply(context, left, right); }),
                  shown([&] { return smallest(size, a * b); }));
        if (b == 0) continue;
        // The quotient by long division of magnitudes.
        const Wide magnitude = (a < 0 ? -a : a) / (b < 0 ? -b : b);
        const Wide quotient = (a < 0) != (b < 0) ? -magnitude : magnitude;
        if (quotient < 2147483648LL) {
            ASSERT_EQ(shown([&] { return script::integerDivide(context, left, right); }),
                      shown([&] { return smallest(size, quotient); }));
        }
        ASSERT_EQ(shown([&] { return script::modulo(context, left, right); }),
                  shown([&] { return smallest(size, a - quotient * b); }));
    }
}

// 113 bits hold sums, products and quotients so closely that rounding them to 53 or 24 gives the correct result.
TEST_F(Differential, RealNumbersAreCorrectlyRounded) {
    const auto expected = [](bool single, Quad result) {
        const auto wide = static_cast<double>(result);
        const auto narrow = static_cast<float>(result);
        if (single && std::isfinite(narrow)) return Value::single(narrow);
        if (!std::isfinite(wide)) throw script::ScriptError(6);
        return Value::number(wide);
    };
    for (int i = 0; i < 200000; ++i) {
        const bool single = below(3) == 0;
        const bool common = below(2) == 0;
        double a = common ? commonDouble() : anyDouble();
        double b = common ? commonDouble() : anyDouble();
        if (single) {
            const auto narrowA = static_cast<float>(a);
            const auto narrowB = static_cast<float>(b);
            if (!std::isfinite(narrowA) || !std::isfinite(narrowB)) continue;
            a = static_cast<double>(narrowA);
            b = static_cast<double>(narrowB);
        }
        const Value left = single ? Value::single(static_cast<float>(a)) : Value::number(a);
        const Value right = single ? Value::single(static_cast<float>(b)) : Value::number(b);
        const Quad x = a;
        const Quad y = b;
        SCOPED_TRACE(std::to_string(a) + " and " + std::to_string(b));
        ASSERT_EQ(shown([&] { return script::add(context, left, right); }),
                  shown([&] { return expected(single, x + y); }));
        ASSERT_EQ(shown([&] { return script::subtract(context, left, right); }),
                  shown([&] { return expected(single, x - y); }));
        ASSERT_EQ(shown([&] { return script::multiply(context, left, right); }),
                  shown([&] { return expected(single, x * y); }));
        if (b == 0) continue;
        ASSERT_EQ(shown([&] { return script::divide(context, left, right); }),
                  shown([&] { return expected(single, x / y); }));
    }
}

// A number of ten-thousandths written out as decimal text, and any text of such a number with more places.
std::string decimalText(Wide number, int places) {
    std::string digits;
    const bool negative = number < 0;
    for (Wide rest = negative ? -number : number; rest != 0; rest /= 10)
        digits.insert(digits.begin(), static_cast<char>('0' + static_cast<int>(rest % 10)));
    while (static_cast<int>(digits.size()) <= places) digits.insert(digits.begin(), '0');
    digits.insert(digits.size() - static_cast<std::size_t>(places), ".");
    return (negative ? "-" : "") + digits;
}

// number / divisor, half to even.
Wide roundedQuotient(Wide number, Wide divisor) {
    Wide floor = number / divisor;
    Wide rest = number % divisor;
    if (rest < 0) {
        rest += divisor;
        --floor;
    }
    if (rest * 2 > divisor || (rest * 2 == divisor && floor % 2 != 0)) ++floor;
    return floor;
}

TEST_F(Differential, CurrencyIsExactToFourPlaces) {
    const auto expected = [](Wide number) {
        if (number > std::numeric_limits<std::int64_t>::max() || number < std::numeric_limits<std::int64_t>::min())
            throw script::ScriptError(6);
        return Value::currency(static_cast<std::int64_t>(number));
    };
    for (int i = 0; i < 100000; ++i) {
        const auto a = static_cast<std::int64_t>(random()) >> below(64);
        const auto b = static_cast<std::int64_t>(random()) >> below(64);
        const Value left = Value::currency(a);
        const Value right = Value::currency(b);
        SCOPED_TRACE(std::to_string(a) + " and " + std::to_string(b));
        ASSERT_EQ(shown([&] { return script::add(context, left, right); }),
                  shown([&] { return expected(Wide{a} + b); }));
        ASSERT_EQ(shown([&] { return script::subtract(context, left, right); }),
                  shown([&] { return expected(Wide{a} - b); }));
        ASSERT_EQ(shown([&] { return script::multiply(context, left, right); }),
                  shown([&] { return expected(roundedQuotient(Wide{a} * b, 10000)); }));
        ASSERT_EQ(script::toCurrency(context, script::toText(context, left)), a);
        // Seven places, read with rounding to four.
        const std::string written = decimalText(Wide{a} + b, 7);
        ASSERT_EQ(shown([&] { return Value::currency(script::toCurrency(context, context.text(written))); }),
                  shown([&] { return expected(roundedQuotient(Wide{a} + b, 1000)); }))
            << written;
    }
}

std::string libraryText(double number, int digits) {
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "%.*G", digits, number == 0 ? 0.0 : number);
    return buffer;
}

TEST_F(Differential, NumbersAsTextHaveTheirDigitsRoundedOnce) {
    for (int i = 0; i < 200000; ++i) {
        double number = anyDouble();
        if (i % 4 == 1) number = commonDouble();
        // Sixteen digits that end in 5: whether the 5 rounds up hangs on what the binary number is really like.
        if (i % 4 == 2) number = static_cast<double>(below(100000000000000)) * 10 + 5;
        if (i % 4 == 2) number /= std::pow(10.0, static_cast<double>(below(20)));
        if (i % 4 == 3) number = std::ldexp(static_cast<double>(below(1 << 20)), static_cast<int>(below(120)) - 60);
        ASSERT_EQ(script::plainNumber(number), libraryText(number, 15));
        const auto narrow = static_cast<float>(number);
        if (std::isfinite(narrow)) {
            ASSERT_EQ(script::plainNumber(narrow), libraryText(double{narrow}, 7));
        }
    }
}

TEST_F(Differential, TextsReadAsTheNearestNumber) {
    for (int i = 0; i < 100000; ++i) {
        char written[400];
        const double number = i % 2 == 0 ? anyDouble() : commonDouble();
        const bool fixed = std::abs(number) < 1e60 && below(2) == 0;
        std::snprintf(written, sizeof written, fixed ? "%.*f" : "%.*e", static_cast<int>(below(25)), number);
        const auto read = script::parseNumber(written);
        ASSERT_TRUE(read.has_value()) << written;
        ASSERT_EQ(*read, std::strtod(written, nullptr)) << written;
    }
}

TEST_F(Differential, TextFunctionsOnFewLetters) {
    const auto anyText = [&](std::int64_t most) {
        std::string letters;
        for (std::int64_t left = below(most + 1); left > 0; --left) letters += "aaabbA"[below(6)];
        return letters;
    };
    const auto lowered = [](std::string letters) {
        std::replace(letters.begin(), letters.end(), 'A', 'a');
        return letters;
    };
    for (int i = 0; i < 50000; ++i) {
        const std::string haystack = anyText(40) + "b";
        // Half of them stand in it.
        const auto cut = static_cast<std::size_t>(below(static_cast<std::int64_t>(haystack.size())));
        const std::string needle = below(2) == 0 ? haystack.substr(cut, 12) : "a" + anyText(6);
        const bool fold = below(2) == 1;
        const std::string in = fold ? lowered(haystack) : haystack;
        const std::string wanted = fold ? lowered(needle) : needle;
        const auto start = static_cast<std::size_t>(below(static_cast<std::int64_t>(in.size()))) + 1;
        const Value mode = Value::integer(fold ? 1 : 0);
        const Value from = Value::longInteger(static_cast<std::int32_t>(start));
        SCOPED_TRACE(haystack + ' ' + needle + ' ' + std::to_string(start) + (fold ? " folded" : ""));

        // No position wraps round to 0.
        ASSERT_EQ(call("InStr", {from, Value::text(haystack), Value::text(needle), mode}).as.i,
                  static_cast<int>(in.find(wanted, start - 1) + 1));
        ASSERT_EQ(call("InStrRev", {Value::text(haystack), Value::text(needle), from, mode}).as.i,
                  static_cast<int>(in.substr(0, start).rfind(wanted) + 1));

        std::string replaced;
        std::vector<std::string> parts(1);
        for (std::size_t at = 0; at < in.size();) {
            if (in.compare(at, wanted.size(), wanted) == 0) {
                replaced += "<>";
                parts.emplace_back();
                at += wanted.size();
            } else {
                replaced += haystack[at];
                parts.back() += haystack[at++];
            }
        }
        const Value all = Value::longInteger(-1);
        ASSERT_EQ(text("Replace",
                       {Value::text(haystack), Value::text(needle), Value::text("<>"), Value::integer(1), all, mode}),
                  replaced);
        const Value list = call("Split", {Value::text(haystack), Value::text(needle), all, mode});
        ASSERT_EQ(text("Join", {list, Value::text("<>")}), replaced);
        ASSERT_EQ(call("UBound", {list}).as.i, static_cast<int>(parts.size()) - 1);
    }
}

using std::chrono::sys_days;

constexpr sys_days epoch = sys_days(std::chrono::December / 30 / 1899);

TEST(Calendar, AgreesWithTheStandardCalendarOnRandomDays) {
    std::mt19937 random(1);
    std::uniform_int_distribution<std::int64_t> anyDay(script::firstDay, script::lastDay);
    for (int i = 0; i < 100000; ++i) {
        const std::int64_t day = i == 0 ? script::firstDay : i == 1 ? script::lastDay : anyDay(random);
        const sys_days expectedDay = epoch + std::chrono::days(day);
        const std::chrono::year_month_day expected(expectedDay);
        const script::CivilDay civil = script::civilOf(day);
        ASSERT_EQ(civil.year, int(expected.year())) << day;
        ASSERT_EQ(civil.month, int(unsigned(expected.month()))) << day;
        ASSERT_EQ(civil.day, int(unsigned(expected.day()))) << day;
        ASSERT_EQ(script::dayOf(civil), day);
        ASSERT_EQ(script::weekdayOf(day), int(std::chrono::weekday(expectedDay).c_encoding()) + 1) << day;
        const auto lastOfMonth =
            std::chrono::year_month_day_last(expected.year(), expected.month() / std::chrono::last);
        ASSERT_EQ(script::daysInMonth(civil.year, civil.month), int(unsigned(lastOfMonth.day()))) << day;
    }
}

TEST(Calendar, TheTextOfADateReadsBackAsTheDate) {
    std::mt19937 random(2);
    std::uniform_int_distribution<std::int64_t> anySecond(script::firstDay * 86400, script::lastDay * 86400);
    for (int i = 0; i < 20000; ++i) {
        const double date = script::dateOfSeconds(anySecond(random));
        const std::string text = script::plainDate(date);
        const auto read = script::parseDate(text);
        ASSERT_TRUE(read.has_value()) << text;
        ASSERT_NEAR(*read, date, 1e-9) << text;
    }
}

}  // namespace
}  // namespace tolvan::testing
