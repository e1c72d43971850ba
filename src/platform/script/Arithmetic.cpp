// The arithmetic operators. The type of a result follows from the types of the operands (Variant arithmetic as
// documented): the more precise of the two in the order Byte, Integer, Long, Single, Double, with Boolean and Empty as
// Integer (Empty beside a Byte as Byte) and a text as Double. Single with Long gives Double. Currency comes after
// Double in sums and before it in products. A date in a sum gives a date, the difference of two dates is a Double. A
// Byte, Integer, Long or Single that gets too large becomes the next larger type; Double, Currency and Date raise 6.
#include "platform/script/Conversions.h"
#include "platform/script/Operands.h"
#include "platform/script/Operators.h"
#include "platform/script/text/Calendar.h"

#include <cmath>
#include <limits>

namespace tolvan::script {

namespace {

__extension__ using Wide = __int128;

constexpr std::uint32_t integerLikeTypes = bits(Type::Empty, Type::Boolean, Type::Integer, Type::Byte);

Type wholeType(std::uint32_t types) {
    if ((types & bits(Type::Long)) != 0) return Type::Long;
    const bool byte = (types & bits(Type::Byte)) != 0;
    return byte && (types & ~bits(Type::Byte, Type::Empty)) == 0 ? Type::Byte : Type::Integer;
}

// Without Currency and Date.
Type commonType(std::uint32_t types) {
    if ((types & bits(Type::Double, Type::String, Type::Date)) != 0) return Type::Double;
    if ((types & bits(Type::Single)) == 0) return wholeType(types);
    return (types & bits(Type::Long, Type::Currency)) != 0 ? Type::Double : Type::Single;
}

Type sumType(const Operands& operands) {
    if (operands.has(Type::Date)) return Type::Date;
    return operands.has(Type::Currency) ? Type::Currency : commonType(operands.types());
}

Type productType(const Operands& operands) {
    constexpr std::uint32_t realTypes = bits(Type::Single, Type::Double, Type::String, Type::Date);
    if (operands.has(Type::Currency) && (operands.types() & realTypes) == 0) return Type::Currency;
    return commonType(operands.types());
}

// Empty as 0.
std::int64_t whole(const Value& value) {
    return value.is(Type::Empty) ? 0 : value.as.i;
}

Value checkedDate(double days) {
    if (!isDateInRange(days)) throw ScriptError(errors::overflow);
    return Value::date(days);
}

Value checkedCurrency(Wide tenThousandths) {
    if (tenThousandths > std::numeric_limits<std::int64_t>::max() ||
        tenThousandths < std::numeric_limits<std::int64_t>::min())
        throw ScriptError(errors::overflow);
    return Value::currency(static_cast<std::int64_t>(tenThousandths));
}

Value fromSingle(double number) {
    const auto narrow = static_cast<float>(number);
    return std::isinf(narrow) ? Value::number(number) : Value::single(narrow);
}

struct Sum {
    template <class Number>
    static Number apply(Number a, Number b) {
        return a + b;
    }
    static Wide currency(Wide a, Wide b) { return a + b; }
};

struct Difference {
    template <class Number>
    static Number apply(Number a, Number b) {
        return a - b;
    }
    static Wide currency(Wide a, Wide b) { return a - b; }
};

struct Product {
    template <class Number>
    static Number apply(Number a, Number b) {
        return a * b;
    }
    // Half to even.
    static Wide currency(Wide a, Wide b) {
        const Wide product = a * b;
        Wide quotient = product / 10000;
        const Wide rest = product < 0 ? -(product % 10000) : product % 10000;
        if (rest > 5000 || (rest == 5000 && quotient % 2 != 0)) quotient += product < 0 ? -1 : 1;
        return quotient;
    }
};

template <class Operation>
Value calculate(Context& context, const Operands& operands, Type type) {
    const Value& left = operands.left;
    const Value& right = operands.right;
    switch (type) {
        case Type::Byte:
        case Type::Integer:
        case Type::Long:
            return promoted(type, Operation::apply(whole(left), whole(right)));
        case Type::Currency:
            return checkedCurrency(Operation::currency(toCurrency(context, left), toCurrency(context, right)));
        case Type::Single:
            // A Double holds the exact result of two Singles closely enough to round it to a Single once more.
            return fromSingle(Operation::apply(toDouble(context, left), toDouble(context, right)));
        case Type::Date:
            return checkedDate(Operation::apply(toDouble(context, left), toDouble(context, right)));
        default:
            return checkedDouble(Operation::apply(toDouble(context, left), toDouble(context, right)));
    }
}

// The operands of \ and Mod: whole numbers, and the type of the result.
struct WholeOperands {
    Type type;
    std::int64_t left;
    std::int64_t right;
};

WholeOperands wholeOperands(Context& context, const Operands& operands) {
    const std::uint32_t types = operands.types();
    Type type = Type::Long;
    if (types == bits(Type::Byte))
        type = Type::Byte;
    else if ((types & ~integerLikeTypes) == 0)
        type = Type::Integer;
    const WholeOperands numbers{type, toLong(context, operands.left), toLong(context, operands.right)};
    if (numbers.right == 0) throw ScriptError(errors::divisionByZero);
    return numbers;
}

}  // namespace

const Value& plainObject(Context& context, const Value& operand, Value& keep) {
    if (!operand.is(Type::Object)) throw ScriptError(errors::typeMismatch);
    keep = context.plain(operand);
    if (keep.isOneOf(bits(Type::Array, Type::Error, Type::Object))) throw ScriptError(errors::typeMismatch);
    return keep;
}

Value promoted(Type least, std::int64_t number) {
    if (least == Type::Byte && number >= 0 && number <= 255) return Value::byte(static_cast<std::uint8_t>(number));
    if (least != Type::Long && static_cast<std::int16_t>(number) == number)
        return Value::integer(static_cast<std::int16_t>(number));
    if (static_cast<std::int32_t>(number) == number) return Value::longInteger(static_cast<std::int32_t>(number));
    return Value::number(static_cast<double>(number));
}

Value checkedDouble(double number) {
    if (!std::isfinite(number)) throw ScriptError(errors::overflow);
    return Value::number(number);
}

Value add(Context& context, const Value& left, const Value& right) {
    const Operands operands(context, left, right);
    if (operands.hasNull()) return Value::null();
    // Two texts, or a text and Empty.
    if (operands.has(Type::String) && (operands.types() & ~bits(Type::String, Type::Empty)) == 0)
        return concatenate(context, operands.left, operands.right);
    return calculate<Sum>(context, operands, sumType(operands));
}

Value subtract(Context& context, const Value& left, const Value& right) {
    const Operands operands(context, left, right);
    if (operands.hasNull()) return Value::null();
    const bool betweenDates = operands.left.is(Type::Date) && operands.right.is(Type::Date);
    return calculate<Difference>(context, operands, betweenDates ? Type::Double : sumType(operands));
}

Value multiply(Context& context, const Value& left, const Value& right) {
    const Operands operands(context, left, right);
    if (operands.hasNull()) return Value::null();
    return calculate<Product>(context, operands, productType(operands));
}

// Always Double, but a Single divided by a Single or a smaller number, or such a number divided by a Single, gives a
// Single.
Value divide(Context& context, const Value& left, const Value& right) {
    const Operands operands(context, left, right);
    if (operands.hasNull()) return Value::null();
    const double dividend = toDouble(context, operands.left);
    const double divisor = toDouble(context, operands.right);
    if (divisor == 0) throw ScriptError(dividend == 0 ? errors::overflow : errors::divisionByZero);
    const double quotient = dividend / divisor;
    const bool single =
        operands.has(Type::Single) && (operands.types() & ~(integerLikeTypes | bits(Type::Single))) == 0;
    return single ? fromSingle(quotient) : checkedDouble(quotient);
}

Value integerDivide(Context& context, const Value& left, const Value& right) {
    const Operands operands(context, left, right);
    if (operands.hasNull()) return Value::null();
    const WholeOperands numbers = wholeOperands(context, operands);
    const std::int64_t quotient = numbers.left / numbers.right;
    if (static_cast<std::int32_t>(quotient) != quotient) throw ScriptError(errors::overflow);
    return promoted(numbers.type, quotient);
}

Value modulo(Context& context, const Value& left, const Value& right) {
    const Operands operands(context, left, right);
    if (operands.hasNull()) return Value::null();
    const WholeOperands numbers = wholeOperands(context, operands);
    return promoted(numbers.type, numbers.left % numbers.right);
}

Value power(Context& context, const Value& left, const Value& right) {
    const Operands operands(context, left, right);
    if (operands.hasNull()) return Value::null();
    const double base = toDouble(context, operands.left);
    const double exponent = toDouble(context, operands.right);
    if (base < 0 && std::trunc(exponent) != exponent) throw ScriptError(errors::invalidCall);
    if (base == 0 && exponent < 0) throw ScriptError(errors::invalidCall);
    return checkedDouble(std::pow(base, exponent));
}

Value negate(Context& context, const Value& operand) {
    Value keep;
    const Value& value = plainOperand(context, operand, keep);
    switch (value.type()) {
        case Type::Null:
            return Value::null();
        case Type::Long:
            return promoted(Type::Long, -std::int64_t{value.as.i});
        case Type::Single:
            return Value::single(-value.as.f);
        case Type::Currency:
            return checkedCurrency(-Wide{value.as.c});
        case Type::Date:
            return checkedDate(-value.as.d);
        case Type::Double:
        case Type::String:
            return Value::number(-toDouble(context, value));
        default:
            return promoted(Type::Integer, -whole(value));
    }
}

Value concatenate(Context& context, const Value& left, const Value& right) {
    const Operands operands(context, left, right);
    const bool leftNull = operands.left.is(Type::Null);
    const bool rightNull = operands.right.is(Type::Null);
    if (leftNull && rightNull) return Value::null();
    if (rightNull) return toText(context, operands.left);
    Value joined = leftNull ? context.text({}) : toText(context, operands.left);
    if (joined.view().empty()) return toText(context, operands.right);
    Value keep;
    const std::string_view tail = toTextView(context, operands.right, keep);
    if (tail.empty()) return joined;
    appendText(context.heap(), joined, tail);
    return joined;
}

}  // namespace tolvan::script
