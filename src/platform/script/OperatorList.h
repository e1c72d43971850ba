// The operators of the language in one list. The parser's levels, the compiler's choice of instructions and the
// instructions themselves are made from it; the machine's loop (MachineDispatch.cpp) does not compile while an operator
// of the list has no meaning there.
#pragma once

#include <cstdint>

namespace tolvan::script {

// How tightly operators bind, loosest first.
enum class Precedence : std::uint8_t {
    None,
    Imp,
    Eqv,
    Xor,
    Or,
    And,
    Not,
    Comparison,
    Concatenation,
    Sum,
    Modulo,
    IntegerDivision,
    Product,
    Sign,
    Power,
};

// clang-format off

// Name of the instructions, token, level. The right operand can be a constant of the code.
#define TOLVAN_BINARY_OPERATIONS(X) \
    X(Add, Plus, Sum) \
    X(Subtract, Minus, Sum) \
    X(Multiply, Times, Product) \
    X(Divide, Divide, Product) \
    X(IntegerDivide, IntegerDivide, IntegerDivision) \
    X(Modulo, Mod, Modulo) \
    X(Power, Power, Power) \
    X(Concatenate, Concatenate, Concatenation)

// The same for operators that have no form with a constant.
#define TOLVAN_LOGICAL_OPERATIONS(X) \
    X(And, And, And) \
    X(Or, Or, Or) \
    X(Xor, Xor, Xor) \
    X(Eqv, Eqv, Eqv) \
    X(Imp, Imp, Imp)

// Name of the instructions and token, level, the comparison with its operands the other way round, and the one that is
// true where this one is false.
#define TOLVAN_COMPARISONS(X) \
    X(Equal, Comparison, Equal, NotEqual) \
    X(NotEqual, Comparison, NotEqual, Equal) \
    X(Less, Comparison, Greater, GreaterEqual) \
    X(LessEqual, Comparison, GreaterEqual, Greater) \
    X(Greater, Comparison, Less, LessEqual) \
    X(GreaterEqual, Comparison, LessEqual, Less)

// clang-format on

}  // namespace tolvan::script
