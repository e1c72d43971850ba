// Late binding: names that had no meaning when the code that uses them was compiled, because source that Execute runs
// may declare them at any time. `own` is the register of such a name: the procedure's own variable, or, once it was
// found, a reference to the variable outside.

#include "platform/script/Conversions.h"
#include "platform/script/machine/MachineFrames.h"

namespace tolvan::script {

namespace {

void refer(Value& place, Value& variable) {
    place = Value();
    place.tag = bits(Type::Reference);
    place.as.ref = &variable;
}

}  // namespace

// What the name stands for now, outside the variables of the running procedure; null: nothing.
const Symbol* Machine::meaningOf(NameId name) {
    if (const GeneratedNames* generated = enclosingFrame().generated) {
        const auto place = generated->symbols.find(name);
        if (place != generated->symbols.end()) return &place->second;
    }
    return symbols_->find(name);
}

// The variable that the name stands for; null if it stands for something else, which is `meaning` then.
Value* Machine::lateVariable(Value& own, const LateUse& use, const Symbol*& meaning) {
    // An Empty one may be a name that was declared since it was last used.
    if (!followed(own).is(Type::Empty)) return &followed(own);
    if (GeneratedNames* generated = enclosingFrame().generated) {
        const auto place = generated->variables.find(use.name);
        if (place != generated->variables.end()) {
            refer(own, place->second);
            return &place->second;
        }
    }
    meaning = meaningOf(use.name);
    if (meaning == nullptr) {
        if (use.mustBeDeclared && &followed(own) == &own) throw ScriptError(errors::undefinedVariable);
        return &followed(own);
    }
    if (meaning->kind != Symbol::Kind::Variable) return nullptr;
    refer(own, *meaning->variable);
    return meaning->variable;
}

void Machine::findVariable(Value& own, const LateUse& use) {
    const Symbol* meaning = nullptr;
    if (lateVariable(own, use, meaning) != nullptr || use.wantsReference) return;
    // An object of the host: its elements can be assigned.
    if (meaning->kind != Symbol::Kind::HostObject) throw ScriptError(errors::illegalAssignment);
    own = meaning->constant;
}

// Leaves the result in base[0] and clears the arguments, as all calls do; true if a procedure was entered instead.
bool Machine::callLate(Value& own, const LateUse& use, Value* base, std::uint32_t count) {
    const Symbol* meaning = nullptr;
    Value* const variable = lateVariable(own, use, meaning);
    if (variable == nullptr) return callMeaning(*meaning, use, base, count);
    const std::span<Value> arguments(base + 1, count);
    if (count == 0 && use.wantsReference) {
        refer(base[0], *variable);
        return false;
    }
    if (count == 0 && !use.isStatement) {
        base[0] = *variable;
        return false;
    }
    if (!variable->is(Type::Object)) {
        for (Value& argument : arguments)
            if (argument.is(Type::Reference)) argument = Value(*argument.as.ref);
    }
    if (use.wantsReference && variable->is(Type::Array)) {
        referElement(base[0], *variable, arguments);
        for (Value& argument : arguments) releaseHeld(argument);
        return false;
    }
    base[0] = *variable;
    return callValue(base, count, use.isStatement);
}

bool Machine::callMeaning(const Symbol& meaning, const LateUse& use, Value* base, std::uint32_t count) {
    switch (meaning.kind) {
        case Symbol::Kind::Procedure: {
            const Procedure& procedure = *meaning.procedure->procedure;
            if (procedure.parameterCount != count) throw ScriptError(errors::argumentCount);
            loadArguments(procedure, base);
            if (--ticks_ <= 0) slowTick();
            enter(procedure, base, nullptr, false);
            return true;
        }
        case Symbol::Kind::HostMember:
            callHost(*meaning.member, base, count);
            return false;
        case Symbol::Kind::Constant:
        case Symbol::Kind::HostObject:
            base[0] = meaning.constant;
            return count != 0 || use.isStatement ? callValue(base, count, use.isStatement) : false;
        default:
            throw ScriptError(errors::typeMismatch);
    }
}

void Machine::newLate(Value& target, NameId name) {
    const Symbol* meaning = meaningOf(name);
    if (meaning == nullptr || meaning->kind != Symbol::Kind::Class) throw ScriptError(errors::classNotDefined);
    newObject(target, *meaning->scriptClass);
}

}  // namespace tolvan::script
