#include "platform/script/machine/ClassInstance.h"

#include "platform/script/ArrayCell.h"
#include "platform/script/machine/Machine.h"

namespace tolvan::script {

ClassInstance::ClassInstance(Machine& machine, ScriptClass& scriptClass)
    : machine_(&machine), class_(&scriptClass), fields_(scriptClass.fieldCount()) {
    for (std::size_t i = 0; i < fields_.size(); ++i) {
        if (!scriptClass.fieldIsArray[i]) continue;
        const std::vector<std::uint32_t>& extents = scriptClass.fieldBounds[i];
        fields_[i] = Value::adopt(ArrayCell::create(machine.heap(), extents, extents.empty()));
    }
    machine.addInstance(*this);
}

ClassInstance::~ClassInstance() {
    if (!isDetached()) machine_->removeInstance(*this);
}

void ClassInstance::detach() {
    machine_ = nullptr;
    class_ = nullptr;
    std::vector<Value> held;
    held.swap(fields_);
}

void ClassInstance::dispose() noexcept {
    if (isDetached())
        delete this;
    else
        machine_->finalize(*this);
}

Value ClassInstance::call(Context&, NameId name, std::span<Value> arguments) {
    const ScriptClass::Member* member = isDetached() ? nullptr : class_->find(name);
    if (member == nullptr || member->isPrivate || (member->field < 0 && member->call == nullptr))
        throw ScriptError(errors::noSuchMember);
    if (member->field < 0) return machine_->invoke(*member->call, this, arguments);
    if (!arguments.empty()) throw ScriptError(errors::argumentCount);
    return field(member->field);
}

int HostReference::find(NameId name) {
    const auto [place, isNew] = members_.try_emplace(name, HostObject::noMember);
    if (isNew && name != defaultMemberName) place->second = object_.findMember(names_.spelling(name));
    if (place->second == HostObject::noMember) throw ScriptError(errors::noSuchMember);
    return place->second;
}

Value HostReference::call(Context& context, NameId name, std::span<Value> values) {
    Arguments arguments(context, values);
    return object_.call(find(name), arguments);
}

void HostReference::put(Context& context, NameId name, std::span<Value> values, const Value& value, bool) {
    Arguments arguments(context, values);
    object_.put(find(name), arguments, value);
}

Value ProcedureReference::call(Context&, NameId name, std::span<Value> arguments) {
    if (name != defaultMemberName) throw ScriptError(errors::noSuchMember);
    return machine_.invoke(*slot_.procedure, nullptr, arguments);
}

}  // namespace tolvan::script
