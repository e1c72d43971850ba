// A procedure as a value.
#pragma once

#include "platform/script/Object.h"
#include "platform/script/compiler/LoadedModule.h"

#include <string_view>

namespace tolvan::script {

class Machine;

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
