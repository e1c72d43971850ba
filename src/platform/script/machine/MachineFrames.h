// Entering and leaving procedures; inline, because calls are frequent.
#pragma once

#include "platform/script/machine/Machine.h"

namespace tolvan::script {

// Releases what a register holds; the caller writes its tag.
inline void releaseHeld(Value& value) {
    if ((value.tag & Value::heapTypes) != 0) [[unlikely]]
        value = Value();
}

// What a register is, or refers to.
inline Value& followed(Value& value) {
    return value.tag == bits(Type::Reference) ? *value.as.ref : value;
}

// The window at `base` holds the result's register and `count` arguments, as many as the procedure has. Takes over a
// reference to `me`.
inline void Machine::enter(const Procedure& procedure, Value* base, Object* me, bool isEntry) {
    if (base + procedure.registerCount > stackEnd_ || depth_ == deepestCalls) [[unlikely]]
        throw ScriptError(errors::outOfStack);
    releaseHeld(base[0]);
    base[0].tag = bits(Type::Empty);
    Value* const end = base + procedure.variableCount;
    for (Value* variable = base + 1 + procedure.parameterCount; variable < end; ++variable) {
        releaseHeld(*variable);
        variable->tag = bits(Type::Empty);
    }
    Frame& frame = frames_[depth_++];
    frame.procedure = &procedure;
    frame.pc = procedure.code.data();
    frame.base = base;
    frame.me = me;
    frame.generated = nullptr;
    frame.resumeNext = false;
    frame.isEntry = isEntry;
}

// Leaves the running procedure; its result stays in its first register.
inline void Machine::leave() {
    Frame& frame = frames_[depth_ - 1];
    Value* const end = frame.base + frame.procedure->registerCount;
    for (Value* variable = frame.base + 1; variable < end; ++variable) releaseHeld(*variable);
    if (frame.me != nullptr || frame.generated != nullptr) [[unlikely]]
        leaveSlowly(frame);
    --depth_;
}

}  // namespace tolvan::script
