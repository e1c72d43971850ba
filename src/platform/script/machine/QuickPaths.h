// Fast paths for the most frequent operands: Integer, Long and Double. Each returns false, or null, for any others; the
// caller then uses the general operation.
#pragma once

#include "platform/script/ArrayCell.h"
#include "platform/script/machine/MachineFrames.h"

#include <cmath>
#include <cstdint>

namespace tolvan::script::quick {

inline constexpr std::uint32_t wholeTypes = bits(Type::Integer, Type::Long);
inline constexpr std::uint32_t numericTypes = wholeTypes | bits(Type::Double);

// Neither infinite nor NaN: what an operation may leave in a variable.
inline bool isSound(double number) {
    return std::fabs(number) <= 1.7976931348623157e308;
}

inline double asDouble(const Value& value) {
    return value.tag == bits(Type::Double) ? value.as.d : static_cast<double>(value.as.i);
}

inline void putDouble(Value& target, double number) {
    releaseHeld(target);
    target.tag = bits(Type::Double);
    target.as.d = number;
}

inline void putBoolean(Value& target, bool on) {
    releaseHeld(target);
    target.tag = bits(Type::Boolean);
    target.as.i = on ? -1 : 0;
}

// `tags`: those of the operands, or-ed. Two Integers give an Integer as long as the result is one.
inline void putWhole(Value& target, std::int32_t number, std::uint32_t tags) {
    releaseHeld(target);
    const bool isLong = (tags & bits(Type::Long)) != 0 || number != static_cast<std::int16_t>(number);
    target.tag = isLong ? bits(Type::Long) : bits(Type::Integer);
    target.as.i = number;
}

struct Add {
    static bool whole(std::int32_t left, std::int32_t right, std::int32_t* sum) {
        return __builtin_add_overflow(left, right, sum);
    }
    static double real(double left, double right) { return left + right; }
};
struct Subtract {
    static bool whole(std::int32_t left, std::int32_t right, std::int32_t* difference) {
        return __builtin_sub_overflow(left, right, difference);
    }
    static double real(double left, double right) { return left - right; }
};
struct Multiply {
    static bool whole(std::int32_t left, std::int32_t right, std::int32_t* product) {
        return __builtin_mul_overflow(left, right, product);
    }
    static double real(double left, double right) { return left * right; }
};

template <class Operation>
inline bool arithmetic(Value& target, const Value& left, const Value& right) {
    const std::uint32_t tags = left.tag | right.tag;
    if ((tags & ~wholeTypes) == 0) {
        std::int32_t result = 0;
        if (Operation::whole(left.as.i, right.as.i, &result)) [[unlikely]]
            return false;
        putWhole(target, result, tags);
        return true;
    }
    double result = 0;
    if (tags == bits(Type::Double))
        result = Operation::real(left.as.d, right.as.d);
    else if ((tags & ~numericTypes) == 0)
        result = Operation::real(asDouble(left), asDouble(right));
    else
        return false;
    if (!isSound(result)) [[unlikely]]
        return false;
    putDouble(target, result);
    return true;
}

inline bool divided(Value& target, const Value& left, const Value& right) {
    if (((left.tag | right.tag) & ~numericTypes) != 0) return false;
    const double quotient = asDouble(left) / asDouble(right);
    if (!isSound(quotient)) [[unlikely]]
        return false;
    putDouble(target, quotient);
    return true;
}

// By -1 the smallest Long would overflow.
inline bool dividesWhole(const Value& left, const Value& right) {
    return ((left.tag | right.tag) & ~wholeTypes) == 0 && static_cast<std::uint32_t>(right.as.i) + 1 > 1;
}

inline bool integerDivided(Value& target, const Value& left, const Value& right) {
    if (!dividesWhole(left, right)) return false;
    putWhole(target, left.as.i / right.as.i, left.tag | right.tag);
    return true;
}

inline bool moduloOf(Value& target, const Value& left, const Value& right) {
    if (!dividesWhole(left, right)) return false;
    putWhole(target, left.as.i % right.as.i, left.tag | right.tag);
    return true;
}

// Booleans, or whole numbers bit by bit. Also does Not, as Xor with -1.
template <class Operation>
inline bool logical(Value& target, const Value& left, const Value& right, Operation operation) {
    const std::uint32_t tags = left.tag | right.tag;
    if (tags == bits(Type::Boolean)) {
        const bool result = operation(left.as.i, right.as.i) != 0;
        putBoolean(target, result);
        return true;
    }
    if ((tags & ~wholeTypes) != 0) return false;
    putWhole(target, operation(left.as.i, right.as.i), tags);
    return true;
}

// What can be compared at once, as whole numbers or as reals; `Compare` is the comparison.
template <class Compare>
inline bool compared(const Value& left, const Value& right, bool& result) {
    const std::uint32_t tags = left.tag | right.tag;
    if ((tags & ~wholeTypes) == 0 || tags == bits(Type::Boolean)) {
        result = Compare::of(left.as.i, right.as.i);
        return true;
    }
    if ((tags & ~numericTypes) != 0) return false;
    result = Compare::of(asDouble(left), asDouble(right));
    return true;
}

#define COMPARISON(name, sign, isTrueFor)                                           \
    struct name {                                                                   \
        template <class Number>                                                     \
        static bool of(Number left, Number right) {                                 \
            return left sign right;                                                 \
        }                                                                           \
        static bool of(Order order) { return order != Order::Null && (isTrueFor); } \
    };
COMPARISON(Equal, ==, order == Order::Equal)
COMPARISON(NotEqual, !=, order != Order::Equal)
COMPARISON(Less, <, order == Order::Less)
COMPARISON(LessEqual, <=, order != Order::Greater)
COMPARISON(Greater, >, order == Order::Greater)
COMPARISON(GreaterEqual, >=, order != Order::Less)
#undef COMPARISON

// Adds 1 to a counter that is whole, and so is its limit.
inline bool countsOn(Value& counter, const Value& limit) {
    if (((counter.tag | limit.tag) & ~wholeTypes) != 0 || counter.as.i == INT32_MAX) [[unlikely]]
        return false;
    if (++counter.as.i > INT16_MAX) counter.tag = bits(Type::Long);
    return true;
}

inline bool isSimple(const Value& value) {
    return (value.tag & Value::heapTypes) == 0;
}

// The element where array and index are of the most frequent kind, or null.
inline Value* quickElement(Value& array, const Value& index) {
    if (array.tag != bits(Type::Array) || (index.tag & ~wholeTypes) != 0) return nullptr;
    ArrayCell* cell = array.array();
    const auto number = static_cast<std::uint32_t>(index.as.i);
    return number < cell->count1 ? cell->items + number : nullptr;
}

}  // namespace tolvan::script::quick
