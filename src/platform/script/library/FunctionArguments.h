// How the built-in functions read their arguments, and the tables of functions that each file of this folder gives.
#pragma once

#include "platform/encoding/Ascii.h"
#include "platform/script/Builtin.h"
#include "platform/script/Conversions.h"

#include <span>

namespace tolvan::script {

[[noreturn]] void raise(int number);

// Arguments may be moved out and replaced: they are the function's own.
using ArgumentList = std::span<Value>;

inline bool isGiven(ArgumentList arguments, std::size_t index) {
    return index < arguments.size() && !arguments[index].isMissing();
}

// The argument, an object replaced by the value of its default member.
Value& settle(Context& context, Value& argument);

// A whole number, or `otherwise` if it was left out.
std::int32_t longOr(Context& context, ArgumentList arguments, std::size_t index, std::int32_t otherwise);
bool booleanOr(Context& context, ArgumentList arguments, std::size_t index, bool otherwise);
// A whole number from `low` to `high`; raises 5 beyond.
std::int32_t longWithin(Context& context, const Value& argument, std::int32_t low, std::int32_t high);

// vbBinaryCompare (also if it was left out) or vbTextCompare; raises 5 for anything else.
enum class Comparison { Binary, Text };
Comparison comparisonAt(Context& context, ArgumentList arguments, std::size_t index);

// The array of one dimension that Join and Filter work on: raises 13 if it is none, 5 if it has more dimensions, 9 if
// it has no bounds yet.
std::span<const Value> listArgument(Context& context, Value& argument);

// A text of `length` bytes, which the caller writes to `bytes`. Throws 7.
Value newText(Context& context, std::size_t length, char*& bytes);
// The part of a text that begins at `from` (0: the first byte), with at most `count` bytes.
Value partOf(Context& context, Value& text, std::size_t from, std::size_t count);

std::span<const Builtin> arrayFunctions();
std::span<const Builtin> conversionFunctions();
std::span<const Builtin> dateFunctions();
std::span<const Builtin> dateArithmeticFunctions();
std::span<const Builtin> formatFunctions();
std::span<const Builtin> inspectionFunctions();
std::span<const Builtin> mathematicsFunctions();
std::span<const Builtin> outsideFunctions();
std::span<const Builtin> textFunctions();
std::span<const Builtin> textSearchFunctions();

}  // namespace tolvan::script
