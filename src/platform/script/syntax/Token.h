// The words and signs of a module.
#pragma once

#include "platform/script/Object.h"

#include <cstdint>
#include <string_view>

namespace tolvan::script {

enum class Token : std::uint8_t {
    EndOfFile,
    EndOfLine,
    Colon,
    Name,
    Literal,  // number, text or date
    Open,
    Close,
    Comma,
    Dot,
    Plus,
    Minus,
    Times,
    Divide,
    IntegerDivide,
    Power,
    Concatenate,
    Equal,
    NotEqual,
    Less,
    LessEqual,
    Greater,
    GreaterEqual,
    // Reserved words, in the order of the table in Lexer.cpp.
    And,
    ByRef,
    ByVal,
    Call,
    Case,
    Class,
    Const,
    Dim,
    Do,
    Each,
    Else,
    ElseIf,
    Empty,
    End,
    Eqv,
    Exit,
    False,
    For,
    Function,
    GoTo,
    If,
    Imp,
    In,
    Is,
    Let,
    Loop,
    Me,
    Mod,
    New,
    Next,
    Not,
    Nothing,
    Null,
    On,
    Option,
    Or,
    Private,
    Public,
    ReDim,
    Rem,
    Resume,
    Select,
    Set,
    Stop,
    Sub,
    Then,
    To,
    True,
    Until,
    Wend,
    While,
    With,
    Xor,
};

constexpr bool isReserved(Token token) {
    return token >= Token::And;
}

}  // namespace tolvan::script
