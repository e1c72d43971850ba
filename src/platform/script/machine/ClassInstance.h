// An object of a script's class.
#pragma once

#include "platform/script/Object.h"
#include "platform/script/compiler/LoadedModule.h"

#include <string_view>
#include <vector>

namespace tolvan::script {

class Machine;

// Its machine keeps a list of all instances, so that those which hold each other can be released in the end.
class ClassInstance : public Object {
  public:
    ClassInstance(Machine& machine, ScriptClass& scriptClass);
    ~ClassInstance() override;

    ScriptClass& scriptClass() { return *class_; }
    Value& field(int index) { return fields_[static_cast<std::size_t>(index)]; }
    // Releases what the fields hold. An instance that the host still holds can outlive machine and class in this state.
    void detach();
    bool isDetached() const { return machine_ == nullptr; }

    std::string_view typeName() const override { return isDetached() ? std::string_view("Object") : class_->spelling; }
    Value call(Context& context, NameId name, std::span<Value> arguments) override;
    bool hasDefault() const override { return !isDetached() && class_->defaultMember != defaultMemberName; }
    ClassInstance* asInstance() override { return this; }
    void dispose() noexcept override;

    bool isTerminated = false;
    ClassInstance* next = nullptr;
    ClassInstance* previous = nullptr;
    ClassInstance* nextFinalized = nullptr;

  private:
    Machine* machine_;
    ScriptClass* class_;
    std::vector<Value> fields_;
};

}  // namespace tolvan::script
