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

}  // namespace tolvan::script
