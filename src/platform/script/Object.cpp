#include "platform/script/Object.h"

#include "platform/script/ScriptError.h"

namespace tolvan::script {

Value Object::call(Context&, NameId, std::span<Value>) {
    throw ScriptError(errors::noSuchMember);
}

void Object::put(Context&, NameId, std::span<Value>, const Value&, bool) {
    throw ScriptError(errors::noSuchMember);
}

}  // namespace tolvan::script
