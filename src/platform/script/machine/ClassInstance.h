// An object of a script's class, an object of the host as a script sees it, and a procedure as a value.
#pragma once

#include "platform/script/HostObject.h"
#include "platform/script/Object.h"
#include "platform/script/compiler/Program.h"

#include <string_view>
#include <unordered_map>
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
    // Lets go what the fields hold, and outlives its machine and class without them: for instances that the host holds.
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

// A host's object in a variable of a script.
class HostReference : public Object {
  public:
    HostReference(HostObject& object, Names& names) : object_(object), names_(names) {}

    std::string_view typeName() const override { return object_.typeName(); }
    Value call(Context& context, NameId name, std::span<Value> arguments) override;
    void put(Context& context, NameId name, std::span<Value> arguments, const Value& value, bool isSet) override;

  private:
    int find(NameId name);

    HostObject& object_;
    Names& names_;
    std::unordered_map<NameId, int> members_;
};

// What GetRef gives: its default member is the procedure.
class ProcedureReference : public Object {
  public:
    ProcedureReference(Machine& machine, const ProcedureSlot& slot) : machine_(machine), slot_(slot) {}

    std::string_view typeName() const override { return "Object"; }
    Value call(Context& context, NameId name, std::span<Value> arguments) override;
    bool hasDefault() const override { return true; }

  private:
    Machine& machine_;
    const ProcedureSlot& slot_;
};

}  // namespace tolvan::script
