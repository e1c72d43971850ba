// What the files of operators share: operands made plain, and the types that have a number.
#pragma once

#include "platform/script/Context.h"
#include "platform/script/ScriptError.h"
#include "platform/script/Value.h"

namespace tolvan::script {

inline constexpr std::uint32_t numberTypes =
    bits(Type::Boolean, Type::Byte, Type::Integer, Type::Long, Type::Single, Type::Double, Type::Currency, Type::Date);

// The operand, an object replaced by the value of its default member, which `keep` holds. Throws 13 for an array or an
// Error value, which no operator takes.
const Value& plainObject(Context& context, const Value& operand, Value& keep);

inline const Value& plainOperand(Context& context, const Value& operand, Value& keep) {
    constexpr std::uint32_t plainTypes = numberTypes | bits(Type::Empty, Type::Null, Type::String);
    return operand.isOneOf(plainTypes) ? operand : plainObject(context, operand, keep);
}

class Operands {
  public:
    Operands(Context& context, const Value& leftOperand, const Value& rightOperand)
        : left(plainOperand(context, leftOperand, keepLeft_)), right(plainOperand(context, rightOperand, keepRight_)) {}
    Operands(const Operands&) = delete;
    Operands& operator=(const Operands&) = delete;

    std::uint32_t types() const { return left.tag | right.tag; }
    bool has(Type type) const { return (types() & bits(type)) != 0; }
    bool hasNull() const { return has(Type::Null); }

  private:
    Value keepLeft_;
    Value keepRight_;

  public:
    const Value& left;
    const Value& right;
};

// The whole number as the smallest of Byte, Integer, Long and Double, from `least` on, that holds it.
Value promoted(Type least, std::int64_t number);
// Throws 6 for an infinite result.
Value checkedDouble(double number);

}  // namespace tolvan::script
