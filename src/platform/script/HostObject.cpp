#include "platform/script/HostObject.h"

#include "platform/script/Conversions.h"

namespace tolvan::script {

void HostObject::put(int, Arguments&, const Value&) {
    throw ScriptError(errors::noSuchMember);
}

int* HostObject::pollBudget(int) {
    return nullptr;
}

namespace {

const Value leftOut = Value::missing();

}  // namespace

const Value& Arguments::operator[](std::size_t index) const {
    if (index >= values_.size()) return leftOut;
    const Value& value = values_[index];
    return value.is(Type::Reference) ? *value.as.ref : value;
}

bool Arguments::isMissing(std::size_t index) const {
    return (*this)[index].isMissing();
}

const Value& Arguments::present(std::size_t index) const {
    const Value& value = (*this)[index];
    if (value.isMissing()) throw ScriptError(errors::argumentNotOptional);
    return value;
}

std::string Arguments::text(std::size_t index) const {
    Value keep;
    return std::string(toTextView(context_, present(index), keep));
}

double Arguments::number(std::size_t index) const {
    return toDouble(context_, present(index));
}

std::int32_t Arguments::integer(std::size_t index) const {
    return toLong(context_, present(index));
}

bool Arguments::boolean(std::size_t index) const {
    return toBoolean(context_, present(index));
}

void Arguments::assign(std::size_t index, Value value) {
    if (index < values_.size() && values_[index].is(Type::Reference)) *values_[index].as.ref = std::move(value);
}

}  // namespace tolvan::script
