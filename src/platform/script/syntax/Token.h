// The words and signs of a module.
#pragma once

#include "platform/script/Object.h"

#include <cstdint>
#include <string_view>

namespace tolvan::script {

// clang-format off

// Signs of one character that begin no other sign.
#define TOLVAN_SIGNS(X) \
    X(Open, '(') X(Close, ')') X(Comma, ',') X(Dot, '.') X(Colon, ':') \
    X(Plus, '+') X(Minus, '-') X(Times, '*') X(Divide, '/') X(IntegerDivide, '\\') X(Power, '^') X(Concatenate, '&')

// Words that cannot be names, spelled like this in any letter case.
#define TOLVAN_RESERVED_WORDS(X) \
    X(And) X(ByRef) X(ByVal) X(Call) X(Case) X(Class) X(Const) X(Dim) X(Do) X(Each) X(Else) X(ElseIf) X(Empty) \
    X(End) X(Eqv) X(Exit) X(False) X(For) X(Function) X(GoTo) X(If) X(Imp) X(In) X(Is) X(Let) X(Loop) X(Me) \
    X(Mod) X(New) X(Next) X(Not) X(Nothing) X(Null) X(On) X(Option) X(Or) X(Private) X(Public) X(ReDim) X(Rem) \
    X(Resume) X(Select) X(Set) X(Stop) X(Sub) X(Then) X(To) X(True) X(Until) X(Wend) X(While) X(With) X(Xor)

// clang-format on

enum class Token : std::uint8_t {
    EndOfFile,
    EndOfLine,
    Name,
    Literal,  // number, text or date
#define X(name, character) name,
    TOLVAN_SIGNS(X)
#undef X
    // Signs that may have two parts.
    Equal,
    NotEqual,
    Less,
    LessEqual,
    Greater,
    GreaterEqual,
#define X(name) name,
    TOLVAN_RESERVED_WORDS(X)
#undef X
};

constexpr bool isReserved(Token token) {
    return token > Token::GreaterEqual;
}

}  // namespace tolvan::script
