// How a built-in function is made known to the compiler: one row in the table.
//
// Who owns what in this folder: library/ holds the functions, constants and formats; text/ numbers and dates as text;
// Conversions.* the conversions between types; Operators.h the full meaning of every operator. Everything else is the
// language itself: lexer, parser, compiler, machine, objects. The machine works out Integer, Long and Double by itself
// where both operands are such, and calls Operators.h for the rest; both must agree.
#pragma once

#include "platform/script/Context.h"
#include "platform/script/ScriptError.h"
#include "platform/script/Value.h"

#include <cstdint>
#include <span>
#include <string_view>

namespace tolvan::script {

// The number of arguments is within the row's limits; one that the script left out is Value::missing(). The values are
// never References; the function may move them out. Errors are thrown as ScriptError.
using BuiltinFunction = Value (*)(Context& context, std::span<Value> arguments);

struct Builtin {
    static constexpr std::uint8_t anyCount = 255;
    std::string_view name;  // as documented: "InStrRev"
    std::uint8_t least;
    std::uint8_t most;  // anyCount: no limit ("Array")
    BuiltinFunction function;
};

// All built-in functions; Randomize is one of them. Eval, Execute, ExecuteGlobal and GetRef are the machine's own and
// not in the table.
std::span<const Builtin> builtins();

struct BuiltinConstant {
    std::string_view name;  // "vbCrLf"
    Value value;
};

// All named constants (vbCrLf, vbRed, ...), whose texts are plain Value::text.
std::span<const BuiltinConstant> builtinConstants();

}  // namespace tolvan::script
