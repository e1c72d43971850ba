// Arrays: their elements, bounds and For Each.

#include "platform/script/ArrayCell.h"
#include "platform/script/Conversions.h"
#include "platform/script/machine/Machine.h"

#include <algorithm>
#include <vector>

namespace tolvan::script {

namespace {

constexpr std::int64_t largestBound = 0x7ffffffe;

// The indexes, objects replaced by the values of their default members. This comes before the array is looked at,
// because code of the script runs for it, which may change the array. `keep` holds the list where it is not the given
// one.
std::span<const Value> plainIndexes(Context& context, std::span<const Value> indexes, std::vector<Value>& keep) {
    const auto isObject = [](const Value& index) { return index.is(Type::Object); };
    if (std::none_of(indexes.begin(), indexes.end(), isObject)) return indexes;
    for (const Value& index : indexes) keep.push_back(context.plain(index));
    return keep;
}

}  // namespace

std::size_t Machine::elementNumber(const ArrayCell& cell, std::span<const Value> indexes) {
    if (indexes.size() != cell.rank) throw ScriptError(errors::subscript);
    std::size_t number = 0;
    std::size_t stride = 1;
    for (std::size_t i = 0; i < indexes.size(); ++i) {
        const std::int32_t index = toLong(*this, indexes[i]);
        if (index < 0 || static_cast<std::uint32_t>(index) >= cell.extents[i]) throw ScriptError(errors::subscript);
        number += static_cast<std::size_t>(index) * stride;
        stride *= cell.extents[i];
    }
    return number;
}

// The element, in an array that nobody else holds.
Value& Machine::element(Value& array, std::span<const Value> indexes) {
    if (!array.is(Type::Array)) throw ScriptError(errors::typeMismatch);
    const std::size_t number = elementNumber(*array.array(), indexes);
    return unshare(heap(), array)->items[number];
}

// An element, or what the default member of an object gives for the arguments.
void Machine::index(Value& target, Value& array, std::span<const Value> indexes) {
    std::vector<Value> keep;
    if (array.is(Type::Array)) indexes = plainIndexes(*this, indexes, keep);
    if (array.is(Type::Array)) {
        target = Value(array.array()->items[elementNumber(*array.array(), indexes)]);
        return;
    }
    if (!array.is(Type::Object)) throw ScriptError(errors::typeMismatch);
    if (array.object() == nullptr) throw ScriptError(errors::objectNotSet);
    const Value holder = array;  // NOLINT(performance-unnecessary-copy-initialization): keeps the object
    std::vector<Value> arguments(indexes.begin(), indexes.end());
    target = holder.object()->call(*this, defaultMemberName, arguments);
}

void Machine::indexLet(Value& target, Value& array, std::span<const Value> indexes) {
    Value found;
    index(found, array, indexes);
    letValue(target, std::move(found));
}

void Machine::putIndex(Value& array, std::span<const Value> indexes, const Value& value, bool isSet) {
    Value assigned = value;
    if (array.is(Type::Object)) {
        if (array.object() == nullptr) throw ScriptError(errors::objectNotSet);
        std::vector<Value> arguments(indexes.begin(), indexes.end());
        const Value holder = array;  // NOLINT(performance-unnecessary-copy-initialization): keeps the object
        if (ClassInstance* instance = holder.object()->asInstance()) {
            arguments.push_back(std::move(assigned));
            putInstance(*instance, defaultMemberName, arguments, isSet, false);
        } else {
            holder.object()->put(*this, defaultMemberName, arguments, assigned, isSet);
        }
        return;
    }
    if (!array.is(Type::Array)) throw ScriptError(errors::typeMismatch);
    if (isSet && !assigned.is(Type::Object)) throw ScriptError(errors::objectRequired);
    if (!isSet) letValue(assigned, Value(value));
    std::vector<Value> keep;
    indexes = plainIndexes(*this, indexes, keep);
    element(array, indexes) = std::move(assigned);
}

void Machine::appendElement(Value& array, std::span<const Value> indexes, const Value& tail) {
    const auto isObject = [](const Value& value) { return value.is(Type::Object); };
    const bool runsNothing =
        array.is(Type::Array) && !isObject(tail) && std::none_of(indexes.begin(), indexes.end(), isObject);
    if (runsNothing) {
        Value& found = element(array, indexes);
        if (!isObject(found)) return append(found, tail);
    }
    Value text;
    index(text, array, indexes);
    append(text, tail);
    putIndex(array, indexes, text, false);
}

// For an argument or a chain of indexes; what is no array gives a value instead.
void Machine::referElement(Value& target, Value& array, std::span<const Value> indexes) {
    if (!array.is(Type::Array)) return index(target, array, indexes);
    std::vector<Value> keep;
    indexes = plainIndexes(*this, indexes, keep);
    Value* const found = &element(array, indexes);
    target = Value();
    target.tag = bits(Type::Reference);
    target.as.ref = found;
}

void Machine::pinArray(Value& target, Value& array) {
    target = Value();
    if (!array.is(Type::Array)) return;
    ArrayCell* cell = unshare(heap(), array);
    ++cell->pins;
    target.tag = bits(Type::Pin);
    target.as.cell = cell;
}

namespace {

std::vector<std::uint32_t> extentsOf(Context& context, std::span<const Value> bounds) {
    if (bounds.size() > ArrayCell::mostDimensions) throw ScriptError(errors::subscript);
    std::vector<std::uint32_t> extents;
    for (const Value& bound : bounds) {
        const std::int64_t upper = toLong(context, bound);
        if (upper < -1) throw ScriptError(errors::subscript);
        if (upper > largestBound) throw ScriptError(errors::outOfMemory);
        extents.push_back(static_cast<std::uint32_t>(upper + 1));
    }
    return extents;
}

// Gives an array with elements another last extent and keeps the elements that both have.
void keepElements(Heap& heap, Value& array, std::span<const std::uint32_t> extents) {
    const ArrayCell& from = *array.array();
    if (from.rank != extents.size() || !std::equal(extents.begin(), extents.end() - 1, from.extents))
        throw ScriptError(errors::subscript);
    if (from.references == 1 && extents.back() >= from.extents[from.rank - 1])
        return array.array()->grow(extents.back());
    Value made = Value::adopt(ArrayCell::create(heap, extents, true));
    const ArrayCell& to = *made.array();
    std::copy_n(from.items, std::min(from.size, to.size), to.items);
    array = std::move(made);
}

}  // namespace

void Machine::makeArray(Value& target, std::span<const Value> bounds) {
    if (target.is(Type::Array)) return;
    target = Value::adopt(ArrayCell::create(heap(), extentsOf(*this, bounds), bounds.empty()));
}

void Machine::reDim(Value& target, std::span<const Value> bounds, bool preserve) {
    const bool isArray = target.is(Type::Array);
    if (isArray && (!target.array()->resizable || target.array()->pins != 0)) throw ScriptError(errors::arrayLocked);
    if (preserve && !isArray && !target.is(Type::Empty)) throw ScriptError(errors::typeMismatch);
    const std::vector<std::uint32_t> extents = extentsOf(*this, bounds);
    if (preserve && isArray && target.array()->size != 0) return keepElements(heap(), target, extents);
    target = Value::adopt(ArrayCell::create(heap(), extents, true));
}

void Machine::erase(Value& target) {
    if (!target.is(Type::Array)) throw ScriptError(errors::typeMismatch);
    ArrayCell* cell = target.array();
    if (cell->pins != 0) throw ScriptError(errors::arrayLocked);
    const bool isFixed = !cell->resizable;
    const std::vector<std::uint32_t> extents(cell->extents, cell->extents + (isFixed ? cell->rank : 0));
    target = Value::adopt(ArrayCell::create(heap(), extents, !isFixed));
}

// For Each: state[0] pins the array, state[1] is the number of the next element.
void Machine::prepareEach(Value* state, Value& group) {
    if (group.is(Type::Object)) {
        throw ScriptError(group.object() == nullptr ? errors::objectNotSet : errors::notACollection);
    }
    if (!group.is(Type::Array)) throw ScriptError(errors::notACollection);
    if (group.array()->rank == 0) throw ScriptError(errors::forNotInitialised);
    ++group.array()->pins;
    state[0] = Value();
    state[0].tag = bits(Type::Pin);
    state[0].as.cell = group.as.cell;
    state[1] = Value();
    state[1].tag = bits(Type::Currency);
    state[1].as.c = 0;
}

bool Machine::nextOfEach(Value* state, Value& target) {
    if (!state[0].is(Type::Pin)) throw ScriptError(errors::forNotInitialised);
    const ArrayCell& cell = *state[0].array();
    const auto next = static_cast<std::size_t>(state[1].as.c);
    if (next >= cell.size) return false;
    ++state[1].as.c;
    target = Value(cell.items[next]);
    return true;
}

}  // namespace tolvan::script
