// Conversions between the types of values, as the documented conversion functions do them. All throw ScriptError:
// 13 for what has no such form, 94 for Null, 6 out of range; an object converts as the value of its default member.
// Fractions round half to even.
#pragma once

#include "platform/script/Context.h"
#include "platform/script/Value.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tolvan::script {

double toDouble(Context& context, const Value& value);
float toSingle(Context& context, const Value& value);
std::int32_t toLong(Context& context, const Value& value);
std::int16_t toInteger(Context& context, const Value& value);
std::uint8_t toByte(Context& context, const Value& value);
bool toBoolean(Context& context, const Value& value);
double toDate(Context& context, const Value& value);
std::int64_t toCurrency(Context& context, const Value& value);
// A String value; the same one if it is a text already.
Value toText(Context& context, const Value& value);
// The bytes of the text form; `keep` holds them where they are not the value's own.
std::string_view toTextView(Context& context, const Value& value, Value& keep);

// What TypeName gives; valid as long as the value is unchanged. Not for References.
std::string_view typeNameOf(const Value& value);

// A text that has a number in the engine's text form.
std::optional<double> textAsNumber(Context& context, std::string_view text);
std::optional<double> textAsDate(Context& context, std::string_view text);
// True and False, letter case aside.
std::optional<bool> textAsBoolean(Context& context, std::string_view text);

// A Double as a number of ten-thousandths; throws 6 out of range.
std::int64_t currencyOf(double number);

}  // namespace tolvan::script
