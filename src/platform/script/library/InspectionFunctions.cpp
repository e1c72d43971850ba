// What a value is, and what the engine is.
#include "platform/script/Object.h"
#include "platform/script/library/FunctionArguments.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <string>

namespace tolvan::script {

namespace {

struct TypeRow {
    std::string_view name;
    std::int16_t number;  // VarType
};

// In the order of the bits of Type.
constexpr TypeRow typeRows[] = {{"Empty", 0},
                                {"Null", 1},
                                {"Boolean", 11},
                                {"Byte", 17},
                                {"Integer", 2},
                                {"Long", 3},
                                {"Single", 4},
                                {"Double", 5},
                                {"Currency", 6},
                                {"Date", 7},
                                {"Error", 10},
                                {"String", 8},
                                {"Variant()", 8192 + 12},
                                {"Object", 9}};

const TypeRow& typeRow(const Value& value) {
    return typeRows[std::countr_zero(value.tag)];
}

Value typeName(Context& context, ArgumentList arguments) {
    return context.text(typeNameOf(arguments[0]));
}

bool hasDefault(const Value& value) {
    return value.is(Type::Object) && value.object() != nullptr && value.object()->hasDefault();
}

// As documented, an object with a default member is of that member's type.
Value varType(Context& context, ArgumentList arguments) {
    if (hasDefault(arguments[0])) settle(context, arguments[0]);
    return Value::integer(typeRow(arguments[0]).number);
}

template <Type type>
Value isOfType(Context&, ArgumentList arguments) {
    return Value::boolean(arguments[0].is(type));
}

Value isDate(Context& context, ArgumentList arguments) {
    const Value& value = hasDefault(arguments[0]) ? settle(context, arguments[0]) : arguments[0];
    if (value.is(Type::String)) return Value::boolean(textAsDate(context, value.view()).has_value());
    return Value::boolean(value.is(Type::Date));
}

// Dates are no numbers, as documented; Empty is one.
Value isNumeric(Context& context, ArgumentList arguments) {
    const Value& value = hasDefault(arguments[0]) ? settle(context, arguments[0]) : arguments[0];
    if (value.is(Type::String)) {
        const auto number = textAsNumber(context, value.view());
        return Value::boolean(number && std::isfinite(*number));
    }
    return Value::boolean(value.isOneOf(bits(Type::Empty, Type::Boolean, Type::Byte, Type::Integer, Type::Long,
                                             Type::Single, Type::Double, Type::Currency)));
}

Value rgb(Context& context, ArgumentList arguments) {
    std::int32_t color = 0;
    for (std::size_t i = 3; i-- > 0;) {
        const std::int32_t part = toLong(context, arguments[i]);
        if (part < 0) raise(errors::invalidCall);
        color = color * 256 + std::min(part, 255);
    }
    return Value::longInteger(color);
}

Value scriptEngine(Context& context, ArgumentList) {
    return context.text("VBScript");
}

// The version of the language that the engine runs.
template <int number>
Value version(Context&, ArgumentList) {
    return Value::longInteger(number);
}

// The one locale is that of the United States: dates, numbers and names of months are written as there.
constexpr std::int32_t localeNumber = 1033;

Value getLocale(Context&, ArgumentList) {
    return Value::longInteger(localeNumber);
}

// 0 and no argument mean the default.
Value setLocale(Context& context, ArgumentList arguments) {
    if (isGiven(arguments, 0) && arguments[0].is(Type::String)) {
        std::string name(arguments[0].view());
        for (char& c : name) c = lowerLetter(c);
        if (name == "en-us") return Value::longInteger(localeNumber);
    }
    const std::int32_t wanted = longOr(context, arguments, 0, 0);
    if (wanted != 0 && wanted != localeNumber) raise(errors::localeNotSupported);
    return Value::longInteger(localeNumber);
}

constexpr Builtin functions[] = {
    {"GetLocale", 0, 0, getLocale},
    {"IsArray", 1, 1, isOfType<Type::Array>},
    {"IsDate", 1, 1, isDate},
    {"IsEmpty", 1, 1, isOfType<Type::Empty>},
    {"IsNull", 1, 1, isOfType<Type::Null>},
    {"IsNumeric", 1, 1, isNumeric},
    {"IsObject", 1, 1, isOfType<Type::Object>},
    {"RGB", 3, 3, rgb},
    {"ScriptEngine", 0, 0, scriptEngine},
    {"ScriptEngineBuildVersion", 0, 0, version<0>},
    {"ScriptEngineMajorVersion", 0, 0, version<5>},
    {"ScriptEngineMinorVersion", 0, 0, version<8>},
    {"SetLocale", 0, 1, setLocale},
    {"TypeName", 1, 1, typeName},
    {"VarType", 1, 1, varType},
};

}  // namespace

std::string_view typeNameOf(const Value& value) {
    if (!value.is(Type::Object)) return typeRow(value).name;
    return value.object() == nullptr ? "Nothing" : value.object()->typeName();
}

std::span<const Builtin> inspectionFunctions() {
    return functions;
}

}  // namespace tolvan::script
