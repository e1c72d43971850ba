// Assignments, operators and loops for operands of every type.

#include "platform/script/ArrayCell.h"
#include "platform/script/Conversions.h"
#include "platform/script/Operands.h"
#include "platform/script/machine/Machine.h"

#include <cmath>

namespace tolvan::script {

namespace {

bool areTexts(const Value& left, const Value& right) {
    return left.is(Type::String) && right.is(Type::String);
}

constexpr std::uint32_t wholeTypes = bits(Type::Integer, Type::Long);

}  // namespace

// An array with fixed bounds is copied at once: its copy can be resized.
void Machine::letValue(Value& target, Value&& value) {
    // Where the object has no default value, it stays in place for the error report.
    Value taken = value.is(Type::Object) ? plain(value) : std::move(value);
    value = Value();
    if (taken.is(Type::Array) && !taken.array()->resizable) {
        taken = Value::adopt(ArrayCell::copy(heap(), *taken.array()));
        taken.array()->resizable = true;
    }
    target = std::move(taken);
}

void Machine::let(Value& target, const Value& value) {
    letValue(target, Value(value));
}

void Machine::setValue(Value& target, Value&& value) {
    if (!value.is(Type::Object)) throw ScriptError(errors::objectRequired);
    Value taken(std::move(value));
    target = std::move(taken);
}

// As a condition; Null is not True.
bool Machine::isTrue(const Value& value) {
    return !value.is(Type::Null) && toBoolean(*this, value);
}

void Machine::slowAdd(Value& target, const Value& left, const Value& right) {
    if (&target == &left && areTexts(left, right))
        appendText(heap(), target, right.view());
    else
        target = add(*this, left, right);
}

void Machine::slowAddInteger(Value& target, const Value& left, std::int16_t right) {
    target = add(*this, left, Value::integer(right));
}

// Where the text stays in its variable or temporary, it grows in place.
void Machine::slowConcatenate(Value& target, const Value& left, const Value& right) {
    if (&target != &left || !left.is(Type::String)) {
        target = concatenate(*this, left, right);
        return;
    }
    if (right.is(Type::String)) return appendText(heap(), target, right.view());
    if (right.is(Type::Null)) return;
    Value keep;
    const std::string_view tail = toTextView(*this, right, keep);
    appendText(heap(), target, tail);
}

// Where nothing of the script runs for it, a text grows in place.
void Machine::append(Value& target, const Value& tail) {
    if (target.is(Type::Object) || tail.is(Type::Object))
        target = concatenate(*this, Value(target), tail);
    else
        slowConcatenate(target, target, tail);
}

// Where the variable still holds its earlier text, that grows in place: the parts are joined first, so that no error
// can leave half of the result.
void Machine::appendParts(Value& target, Value& earlier, std::span<const Value> parts) {
    const bool isUnchanged = earlier.is(Type::String) && target.is(Type::String) && target.as.cell == earlier.as.cell;
    if (isUnchanged) {
        Value tail = parts[0];
        for (const Value& part : parts.subspan(1)) slowConcatenate(tail, tail, part);
        earlier = Value();
        return slowConcatenate(target, target, tail);
    }
    for (const Value& part : parts) earlier = concatenate(*this, earlier, part);
    target = std::move(earlier);
}

void Machine::makeOperand(Value& value) {
    Value keep;
    value = Value(plainOperand(*this, value, keep));
}

void Machine::negateInto(Value& target, const Value& of) {
    target = negate(*this, of);
}
void Machine::notInto(Value& target, const Value& of) {
    target = logicalNot(*this, of);
}

// A plus in front leaves every value as it is, a text too.
void Machine::plusInto(Value& target, const Value& of) {
    Value value = plain(of);
    if (value.is(Type::Array)) throw ScriptError(errors::typeMismatch);
    target = std::move(value);
}

void Machine::isInto(Value& target, const Value& left, const Value& right) {
    if (!left.is(Type::Object) || !right.is(Type::Object)) throw ScriptError(errors::objectRequired);
    target = Value::boolean(left.object() == right.object());
}

Order Machine::slowCompare(const Value& left, const Value& right, Literal literal) {
    if (areTexts(left, right)) {
        const int order = left.view().compare(right.view());
        return order < 0 ? Order::Less : order > 0 ? Order::Greater : Order::Equal;
    }
    return compare(*this, left, right, literal);
}

// The number that a loop counts with. A Boolean or Byte counts as an Integer.
Value Machine::countable(const Value& of) {
    if (of.isOneOf(wholeTypes | bits(Type::Double))) return of;
    Value value = plain(of);
    switch (value.type()) {
        case Type::Null:
            throw ScriptError(errors::invalidNull);
        case Type::Empty:
            return Value::integer(0);
        case Type::Boolean:
        case Type::Byte:
            return Value::integer(static_cast<std::int16_t>(value.as.i));
        case Type::String:
            return Value::number(toDouble(*this, value));
        case Type::Array:
        case Type::Error:
            throw ScriptError(errors::typeMismatch);
        default:
            return value;
    }
}

// Makes numbers of the loop's limit, step and start, and only then gives the counter its start; false if the loop is
// not to run at all. A limit with a fraction becomes the last whole number within it where the counter is whole, so
// that the loop stays one of whole numbers.
bool Machine::prepareFor(Value& counter, std::span<Value, 3> header) {
    Value& limit = header[0];
    const Value& step = header[1];
    for (Value& value : header) value = countable(value);
    counter = std::move(header[2]);
    const bool isUp = compare(*this, step, Value::integer(0)) != Order::Less;
    const Order order = compare(*this, counter, limit);
    if (order == (isUp ? Order::Greater : Order::Less)) return false;
    if (counter.isOneOf(wholeTypes) && step.isOneOf(wholeTypes) && limit.is(Type::Double)) {
        const double within = isUp ? std::floor(limit.as.d) : std::ceil(limit.as.d);
        if (std::fabs(within) < 2147483647.0) limit = Value::longInteger(static_cast<std::int32_t>(within));
    }
    return true;
}

// True if the loop goes on. The counter may have become anything meanwhile.
bool Machine::slowForNext(Value& counter, const Value& limit, const Value& step) {
    if (!limit.isOneOf(wholeTypes | bits(Type::Single, Type::Double, Type::Currency, Type::Date)))
        throw ScriptError(errors::forNotInitialised);
    counter = add(*this, counter, step);
    const bool isUp = compare(*this, step, Value::integer(0)) != Order::Less;
    const Order order = compare(*this, counter, limit);
    if (order == Order::Null) throw ScriptError(errors::invalidNull);
    return order != (isUp ? Order::Greater : Order::Less);
}

}  // namespace tolvan::script
