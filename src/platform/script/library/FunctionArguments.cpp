#include "platform/script/library/FunctionArguments.h"

#include "platform/script/ArrayCell.h"

#include <cstring>

namespace tolvan::script {

void raise(int number) {
    throw ScriptError(number);
}

Value& settle(Context& context, Value& argument) {
    if (argument.is(Type::Object)) argument = context.plain(argument);
    return argument;
}

std::int32_t longOr(Context& context, ArgumentList arguments, std::size_t index, std::int32_t otherwise) {
    return isGiven(arguments, index) ? toLong(context, arguments[index]) : otherwise;
}

bool booleanOr(Context& context, ArgumentList arguments, std::size_t index, bool otherwise) {
    return isGiven(arguments, index) ? toBoolean(context, arguments[index]) : otherwise;
}

std::int32_t longWithin(Context& context, const Value& argument, std::int32_t low, std::int32_t high) {
    const std::int32_t number = toLong(context, argument);
    if (number < low || number > high) raise(errors::invalidCall);
    return number;
}

Comparison comparisonAt(Context& context, ArgumentList arguments, std::size_t index) {
    const std::int32_t number = longOr(context, arguments, index, 0);
    if (number != 0 && number != 1) raise(errors::invalidCall);
    return number == 0 ? Comparison::Binary : Comparison::Text;
}

std::span<const Value> listArgument(Context& context, Value& argument) {
    const Value& list = settle(context, argument);
    if (!list.is(Type::Array)) raise(list.is(Type::Null) ? errors::invalidNull : errors::typeMismatch);
    if (list.array()->rank == 0) raise(errors::subscript);
    if (list.array()->rank > 1) raise(errors::invalidCall);
    return list.array()->elements();
}

Value newText(Context& context, std::size_t length, char*& bytes) {
    StringCell* cell = StringCell::create(&context.heap(), length);
    bytes = cell->bytes();
    return Value::adopt(cell);
}

Value partOf(Context& context, Value& text, std::size_t from, std::size_t count) {
    const std::string_view whole = text.view();
    if (from >= whole.size()) return context.text({});
    if (from == 0 && count >= whole.size()) return std::move(text);
    return context.text(whole.substr(from, count));
}

}  // namespace tolvan::script
