// The logical operators. Two Booleans give a Boolean, two Bytes a Byte, any of Boolean, Byte, Integer and Empty an
// Integer; everything else is rounded to Long and gives a Long. Null stands for a value that is not known: the result
// is Null unless the other operand settles it.
#include "platform/script/Conversions.h"
#include "platform/script/Operands.h"
#include "platform/script/Operators.h"

namespace tolvan::script {

namespace {

// The type of a result from the types of the operands; Null does not count.
Type bitType(std::uint32_t types) {
    types &= ~bits(Type::Null);
    if (types == bits(Type::Boolean)) return Type::Boolean;
    if (types == bits(Type::Byte)) return Type::Byte;
    return (types & ~bits(Type::Boolean, Type::Byte, Type::Integer, Type::Empty)) == 0 ? Type::Integer : Type::Long;
}

Value bitsAs(Type type, std::int32_t number) {
    switch (type) {
        case Type::Boolean:
            return Value::boolean(number != 0);
        case Type::Byte:
            return Value::byte(static_cast<std::uint8_t>(number));
        case Type::Integer:
            return Value::integer(static_cast<std::int16_t>(number));
        default:
            return Value::longInteger(number);
    }
}

enum class Bitwise { And, Or, Xor, Eqv };

std::int32_t combine(Bitwise operation, std::int32_t left, std::int32_t right) {
    switch (operation) {
        case Bitwise::And:
            return left & right;
        case Bitwise::Or:
            return left | right;
        case Bitwise::Xor:
            return left ^ right;
        default:
            return ~(left ^ right);
    }
}

// The result where one operand is Null and the other is `known` (or Null as well).
Value withNull(Context& context, Bitwise operation, const Value& known) {
    if (known.is(Type::Null)) return Value::null();
    const std::int32_t number = toLong(context, known);
    // Nothing turns a 0 in And, or a 1 in Or, into anything else.
    const bool settled = (operation == Bitwise::And && number == 0) || (operation == Bitwise::Or && number != 0);
    return settled ? bitsAs(bitType(known.tag), number) : Value::null();
}

Value apply(Context& context, Bitwise operation, const Value& left, const Value& right) {
    const Operands operands(context, left, right);
    if (operands.left.is(Type::Null)) return withNull(context, operation, operands.right);
    if (operands.right.is(Type::Null)) return withNull(context, operation, operands.left);
    return bitsAs(bitType(operands.types()),
                  combine(operation, toLong(context, operands.left), toLong(context, operands.right)));
}

}  // namespace

Value logicalAnd(Context& context, const Value& left, const Value& right) {
    return apply(context, Bitwise::And, left, right);
}

Value logicalOr(Context& context, const Value& left, const Value& right) {
    return apply(context, Bitwise::Or, left, right);
}

Value logicalXor(Context& context, const Value& left, const Value& right) {
    return apply(context, Bitwise::Xor, left, right);
}

Value logicalEqv(Context& context, const Value& left, const Value& right) {
    return apply(context, Bitwise::Eqv, left, right);
}

// Where the types differ, Not works in the type of the result: the narrower operand has all its bits there.
Value logicalImp(Context& context, const Value& left, const Value& right) {
    const Operands operands(context, left, right);
    const Type type = bitType(operands.types());
    if (operands.hasNull() || type == Type::Boolean || type == Type::Byte)
        return apply(context, Bitwise::Or, logicalNot(context, operands.left), operands.right);
    return bitsAs(type, ~toLong(context, operands.left) | toLong(context, operands.right));
}

Value logicalNot(Context& context, const Value& operand) {
    Value keep;
    const Value& value = plainOperand(context, operand, keep);
    if (value.is(Type::Null)) return Value::null();
    return bitsAs(bitType(value.tag), ~toLong(context, value));
}

}  // namespace tolvan::script
