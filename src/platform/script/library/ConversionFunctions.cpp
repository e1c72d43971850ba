// Conversions between types, and between characters and their codes. Text is bytes: AscB and AscW are Asc, ChrB and
// ChrW are Chr, and there are no codes above 255.
#include "platform/script/library/FunctionArguments.h"

namespace tolvan::script {

namespace {

Value asc(Context& context, ArgumentList arguments) {
    Value keep;
    const std::string_view text = toTextView(context, arguments[0], keep);
    if (text.empty()) raise(errors::invalidCall);
    return Value::integer(static_cast<unsigned char>(text.front()));
}

Value chr(Context& context, ArgumentList arguments) {
    return context.character(static_cast<std::uint8_t>(longWithin(context, arguments[0], 0, 255)));
}

Value cBool(Context& context, ArgumentList arguments) {
    return Value::boolean(toBoolean(context, arguments[0]));
}

Value cByte(Context& context, ArgumentList arguments) {
    return Value::byte(toByte(context, arguments[0]));
}

Value cCur(Context& context, ArgumentList arguments) {
    return Value::currency(toCurrency(context, arguments[0]));
}

Value cDate(Context& context, ArgumentList arguments) {
    return Value::date(toDate(context, arguments[0]));
}

Value cDbl(Context& context, ArgumentList arguments) {
    return Value::number(toDouble(context, arguments[0]));
}

Value cInt(Context& context, ArgumentList arguments) {
    return Value::integer(toInteger(context, arguments[0]));
}

Value cLng(Context& context, ArgumentList arguments) {
    return Value::longInteger(toLong(context, arguments[0]));
}

Value cSng(Context& context, ArgumentList arguments) {
    return Value::single(toSingle(context, arguments[0]));
}

Value cStr(Context& context, ArgumentList arguments) {
    return toText(context, arguments[0]);
}

// The digits of a whole number, 1 << `bitsADigit` being the base. A negative one shows its bits: 16 of an Integer or
// Boolean, else 32.
Value inBase(Context& context, Value& argument, int bitsADigit) {
    const Value& number = settle(context, argument);
    if (number.is(Type::Null)) return Value::null();
    const std::int32_t whole = toLong(context, number);
    auto rest = static_cast<std::uint32_t>(whole);
    if (number.isOneOf(bits(Type::Integer, Type::Boolean))) rest &= 0xffffu;
    char buffer[16];
    char* first = buffer + sizeof buffer;
    do {
        *--first = "0123456789ABCDEF"[rest & ((1u << bitsADigit) - 1)];
        rest >>= bitsADigit;
    } while (rest != 0);
    return context.text({first, static_cast<std::size_t>(buffer + sizeof buffer - first)});
}

Value hex(Context& context, ArgumentList arguments) {
    return inBase(context, arguments[0], 4);
}

Value oct(Context& context, ArgumentList arguments) {
    return inBase(context, arguments[0], 3);
}

constexpr Builtin functions[] = {
    {"Asc", 1, 1, asc},   {"AscB", 1, 1, asc},    {"AscW", 1, 1, asc},  {"CBool", 1, 1, cBool}, {"CByte", 1, 1, cByte},
    {"CCur", 1, 1, cCur}, {"CDate", 1, 1, cDate}, {"CDbl", 1, 1, cDbl}, {"CInt", 1, 1, cInt},   {"CLng", 1, 1, cLng},
    {"CSng", 1, 1, cSng}, {"CStr", 1, 1, cStr},   {"Chr", 1, 1, chr},   {"ChrB", 1, 1, chr},    {"ChrW", 1, 1, chr},
    {"Hex", 1, 1, hex},   {"Oct", 1, 1, oct},
};

}  // namespace

std::span<const Builtin> conversionFunctions() {
    return functions;
}

}  // namespace tolvan::script
