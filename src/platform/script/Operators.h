// The operators of the language for operands of every type, with the documented promotions and errors. The results are
// those that the machine's own quick paths for Integer, Long and Double give. Operands are never References; objects
// take part as their default member.
#pragma once

#include "platform/script/Context.h"
#include "platform/script/Value.h"

namespace tolvan::script {

using BinaryOperator = Value (*)(Context& context, const Value& left, const Value& right);

Value add(Context& context, const Value& left, const Value& right);  // also joins two texts
Value subtract(Context& context, const Value& left, const Value& right);
Value multiply(Context& context, const Value& left, const Value& right);
Value divide(Context& context, const Value& left, const Value& right);
Value integerDivide(Context& context, const Value& left, const Value& right);
Value modulo(Context& context, const Value& left, const Value& right);
Value power(Context& context, const Value& left, const Value& right);
Value negate(Context& context, const Value& operand);
Value concatenate(Context& context, const Value& left, const Value& right);

Value logicalAnd(Context& context, const Value& left, const Value& right);
Value logicalOr(Context& context, const Value& left, const Value& right);
Value logicalXor(Context& context, const Value& left, const Value& right);
Value logicalEqv(Context& context, const Value& left, const Value& right);
Value logicalImp(Context& context, const Value& left, const Value& right);
Value logicalNot(Context& context, const Value& operand);

// How two operands stand to each other under the rules of =, <, >. Numbers compare by value, texts byte by byte; Null
// with anything is Null; Empty is 0 beside a number and "" beside a text. A number is below every text, except where
// the script's line has one of the two, and not both, written out as a literal: a text beside a literal number is read
// as a number (13 if it is none), and a number beside a literal text is written as a text.
enum class Order { Less, Equal, Greater, Null };
enum class Literal { Neither, Left, Right };
Order compare(Context& context, const Value& left, const Value& right, Literal literal = Literal::Neither);

}  // namespace tolvan::script
