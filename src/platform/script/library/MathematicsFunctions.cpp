// Abs, Atn, Cos, Exp, Fix, Int, Log, Randomize, Rnd, Round, Sgn, Sin, Sqr, Tan.
#include "platform/script/Operands.h"
#include "platform/script/Operators.h"
#include "platform/script/library/FunctionArguments.h"
#include "platform/script/text/Calendar.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <iterator>

namespace tolvan::script {

namespace {

Value abs(Context& context, ArgumentList arguments) {
    Value& number = settle(context, arguments[0]);
    switch (number.type()) {
        case Type::Byte:
        case Type::Null:
            return std::move(number);
        case Type::Integer:
        case Type::Boolean:
        case Type::Long:
            return promoted(number.is(Type::Long) ? Type::Long : Type::Integer, std::abs(std::int64_t{number.as.i}));
        case Type::Single:
            return Value::single(std::abs(number.as.f));
        case Type::Currency:
            return number.as.c < 0 ? negate(context, number) : std::move(number);
        case Type::Date:
            return number.as.d < 0 ? negate(context, number) : std::move(number);
        case Type::Empty:
            return Value::integer(0);
        default:
            return Value::number(std::abs(toDouble(context, number)));
    }
}

// What Int, Fix and Round have in common: whole numbers stay as they are (Boolean and Empty as Integer), fractions
// are cut off by `cut`, which works on any floating type.
template <class Cut>
Value cutFraction(Context& context, Value& argument, Cut cut) {
    Value& number = settle(context, argument);
    switch (number.type()) {
        case Type::Byte:
        case Type::Integer:
        case Type::Long:
        case Type::Null:
            return std::move(number);
        case Type::Boolean:
            return Value::integer(static_cast<std::int16_t>(number.as.i));
        case Type::Empty:
            return Value::integer(0);
        case Type::Single:
            return Value::single(static_cast<float>(cut(static_cast<double>(number.as.f))));
        case Type::Date:
            return Value::date(toDate(context, Value::number(cut(number.as.d))));
        default:
            return Value::number(cut(toDouble(context, number)));
    }
}

Value wholeUnits(std::int64_t tenThousandths, bool towardsZero) {
    std::int64_t rest = tenThousandths % 10000;
    if (rest < 0 && !towardsZero) rest += 10000;
    std::int64_t whole = 0;
    if (__builtin_sub_overflow(tenThousandths, rest, &whole)) raise(errors::overflow);
    return Value::currency(whole);
}

Value fix(Context& context, ArgumentList arguments) {
    if (settle(context, arguments[0]).is(Type::Currency)) return wholeUnits(arguments[0].as.c, true);
    return cutFraction(context, arguments[0], [](double number) { return std::trunc(number); });
}

// Named apart from the type.
Value intOf(Context& context, ArgumentList arguments) {
    if (settle(context, arguments[0]).is(Type::Currency)) return wholeUnits(arguments[0].as.c, false);
    return cutFraction(context, arguments[0], [](double number) { return std::floor(number); });
}

double roundDecimals(double number, int decimals) {
    // The powers of ten that a Double holds exactly.
    constexpr double powers[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                 1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
    if (decimals >= static_cast<int>(std::size(powers))) return number;
    const double scale = powers[decimals];
    const double scaled = number * scale;
    // From 2^53 on there is no fraction to round.
    if (std::abs(scaled) >= 9007199254740992.0) return number;
    return std::nearbyint(scaled) / scale;
}

std::int64_t roundCurrency(std::int64_t tenThousandths, int decimals) {
    constexpr std::int64_t units[] = {10000, 1000, 100, 10, 1};
    const std::int64_t unit = units[std::min(decimals, 4)];
    std::int64_t rest = tenThousandths % unit;
    std::int64_t rounded = tenThousandths - rest;
    const bool up = std::abs(rest) * 2 > unit || (std::abs(rest) * 2 == unit && rounded / unit % 2 != 0);
    if (!up) return rounded;
    const std::int64_t step = rest < 0 ? -unit : unit;
    if (__builtin_add_overflow(rounded, step, &rounded)) raise(errors::overflow);
    return rounded;
}

// Half to even.
Value round(Context& context, ArgumentList arguments) {
    const std::int32_t decimals = longOr(context, arguments, 1, 0);
    if (decimals < 0) raise(errors::invalidCall);
    if (settle(context, arguments[0]).is(Type::Currency))
        return Value::currency(roundCurrency(arguments[0].as.c, decimals));
    return cutFraction(context, arguments[0], [=](double number) { return roundDecimals(number, decimals); });
}

Value sgn(Context& context, ArgumentList arguments) {
    const double number = toDouble(context, arguments[0]);
    return Value::integer(static_cast<std::int16_t>((number > 0) - (number < 0)));
}

template <double (*function)(double)>
Value real(Context& context, ArgumentList arguments) {
    return checkedDouble(function(toDouble(context, arguments[0])));
}

Value sqr(Context& context, ArgumentList arguments) {
    const double number = toDouble(context, arguments[0]);
    if (number < 0) raise(errors::invalidCall);
    return Value::number(std::sqrt(number));
}

Value log(Context& context, ArgumentList arguments) {
    const double number = toDouble(context, arguments[0]);
    if (number <= 0) raise(errors::invalidCall);
    return Value::number(std::log(number));
}

// The documented generator: x = (x * 1140671485 + 12820163) Mod 2^24, and the number is x / 2^24.
constexpr std::uint32_t seedMask = 0xffffff;

Value numberOfSeed(std::uint32_t seed) {
    return Value::single(static_cast<float>(seed) / 16777216.0F);
}

std::uint32_t nextSeed(std::uint32_t seed) {
    return (seed * 1140671485u + 12820163u) & seedMask;
}

// A negative argument is the seed itself, 0 repeats the last number.
Value rnd(Context& context, ArgumentList arguments) {
    const float choice = isGiven(arguments, 0) ? toSingle(context, arguments[0]) : 1.0F;
    if (choice < 0) {
        const auto pattern = std::bit_cast<std::uint32_t>(choice);
        context.randomSeed = (pattern + (pattern >> 24)) & seedMask;
    }
    if (choice != 0) context.randomSeed = nextSeed(context.randomSeed);
    return numberOfSeed(context.randomSeed);
}

// Replaces the upper 16 of the seed's 24 bits: as documented, the same number given twice does not repeat a sequence
// (Rnd with a negative number before it does).
Value randomize(Context& context, ArgumentList arguments) {
    const double number = isGiven(arguments, 0) ? toDouble(context, arguments[0]) : secondsSinceMidnight();
    const auto upper = static_cast<std::uint32_t>(std::bit_cast<std::uint64_t>(number) >> 32);
    const std::uint32_t mixed = (upper ^ (upper >> 16)) & 0xffffu;
    context.randomSeed = (context.randomSeed & 0xffu) | (mixed << 8);
    return {};
}

constexpr Builtin functions[] = {
    {"Abs", 1, 1, abs},
    {"Atn", 1, 1, real<std::atan>},
    {"Cos", 1, 1, real<std::cos>},
    {"Exp", 1, 1, real<std::exp>},
    {"Fix", 1, 1, fix},
    {"Int", 1, 1, intOf},
    {"Log", 1, 1, log},
    {"Randomize", 0, 1, randomize},
    {"Rnd", 0, 1, rnd},
    {"Round", 1, 2, round},
    {"Sgn", 1, 1, sgn},
    {"Sin", 1, 1, real<std::sin>},
    {"Sqr", 1, 1, sqr},
    {"Tan", 1, 1, real<std::tan>},
};

}  // namespace

std::span<const Builtin> mathematicsFunctions() {
    return functions;
}

}  // namespace tolvan::script
