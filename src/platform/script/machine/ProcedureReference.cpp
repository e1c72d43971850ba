#include "platform/script/machine/ProcedureReference.h"

#include "platform/script/machine/Machine.h"

namespace tolvan::script {

Value ProcedureReference::call(Context&, NameId name, std::span<Value> arguments) {
    if (name != defaultMemberName) throw ScriptError(errors::noSuchMember);
    return machine_.invoke(*slot_.procedure, nullptr, arguments);
}

}  // namespace tolvan::script
