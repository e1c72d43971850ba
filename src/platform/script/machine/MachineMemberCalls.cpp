// Calls of functions, host members and methods; source that is run; objects.
//
// A window of registers holds the result, or the object, and then the arguments (see CallFrame in the compiler). After
// a call the registers of the arguments are empty.

#include "platform/script/ArrayCell.h"
#include "platform/script/Conversions.h"
#include "platform/script/machine/MachineFrames.h"
#include "platform/script/machine/ProcedureReference.h"
#include "platform/script/machine/Recorder.h"
#include "platform/script/syntax/Lexer.h"

#include <utility>

namespace tolvan::script {

namespace {

void clearArguments(Value* base, std::uint32_t count) {
    for (std::uint32_t i = 1; i <= count; ++i) releaseHeld(base[i]);
}

// What the arguments are, references followed.
void loadReferences(std::span<Value> arguments) {
    for (Value& argument : arguments)
        if (argument.is(Type::Reference)) argument = Value(*argument.as.ref);
}

}  // namespace

void Machine::callBuiltin(const Builtin& builtin, Value* base, std::uint32_t count) {
    base[0] = builtin.function(*this, {base + 1, count});
    clearArguments(base, count);
}

// Counts for the time limit: where the host renews the budget of its polls in each call, no poll would ever come to
// read the clock.
void Machine::callHost(const HostMember& member, Value* base, std::uint32_t count) {
    if (--ticks_ <= 0) slowTick();
    Arguments arguments(*this, {base + 1, count});
    base[0] = member.object->call(member.member, arguments);
    clearArguments(base, count);
}

void Machine::putHost(const HostMember& member, Value* base, std::uint32_t count) {
    Arguments arguments(*this, {base + 1, count});
    member.object->put(member.member, arguments, base[count + 1]);
    clearArguments(base, count + 1);
}

// Tells the recorder, as the quick poll does. The frame's pc is after the instruction.
Machine::AfterPoll Machine::pollHost(const HostMember& member, Value& answer) {
    checkClock();
    Arguments arguments(*this, {});
    const bool wasRecorded = recorder_ != nullptr;
    const bool goesOn = toBoolean(*this, member.object->call(member.member, arguments));
    answer = Value::boolean(goesOn);
    switchRecording();
    if (recorder_ != nullptr) {
        recorder_->goOn();
        if (goesOn) recorder_->beginRow(top(), top().pc - wordsOf(Op::PollHost));
    }
    return wasRecorded == (recorder_ != nullptr) ? AfterPoll::Same : AfterPoll::OtherLoop;
}

bool Machine::callMember(NameId name, Value* base, std::uint32_t count, bool isOwn) {
    if (!base[0].is(Type::Object)) throw ScriptError(errors::objectRequired);
    Object* object = base[0].object();
    if (object == nullptr) throw ScriptError(errors::objectNotSet);
    if (--ticks_ <= 0) slowTick();
    if (ClassInstance* instance = object->asInstance()) return callInstance(*instance, name, base, count, isOwn);
    const Value holder = std::move(base[0]);
    base[0] = object->call(*this, name, {base + 1, count});
    clearArguments(base, count);
    return false;
}

// Enters a method, or reads a field. The arguments of a property without parameters, and of a field, are indexes of
// the array that it gives.
bool Machine::callInstance(ClassInstance& instance, NameId name, Value* base, std::uint32_t count, bool isOwn) {
    const ScriptClass::Member* member = instance.isDetached() ? nullptr : instance.scriptClass().find(name);
    if (member == nullptr || (member->isPrivate && !isOwn)) throw ScriptError(errors::noSuchMember);
    const std::span<Value> arguments(base + 1, count);
    if (member->field >= 0) {
        loadReferences(arguments);
        const Value holder = std::move(base[0]);
        Value& field = instance.field(member->field);
        if (count == 0)
            base[0] = field;
        else
            index(base[0], field, arguments);
        clearArguments(base, count);
        return false;
    }
    if (member->call == nullptr) throw ScriptError(errors::noSuchMember);
    const Procedure& procedure = *member->call;
    if (procedure.parameterCount == 0 && count != 0 && procedure.kind == ProcedureKind::PropertyGet) {
        const Value holder = std::move(base[0]);
        loadReferences(arguments);
        Value group = invoke(procedure, &instance, {});
        index(base[0], group, arguments);
        clearArguments(base, count);
        return false;
    }
    if (procedure.parameterCount != count) throw ScriptError(errors::argumentCount);
    loadArguments(procedure, base);
    // The frame takes over the reference that the window held.
    Value holder = std::move(base[0]);
    enter(procedure, base, &instance, false);
    holder.tag = bits(Type::Empty);
    return true;
}

bool Machine::callValue(Value* base, std::uint32_t count, bool isStatement) {
    const std::span<Value> arguments(base + 1, count);
    if (base[0].is(Type::Object)) return callMember(defaultMemberName, base, count, false);
    if (isStatement || count == 0 || !base[0].is(Type::Array)) throw ScriptError(errors::typeMismatch);
    Value array = std::move(base[0]);
    index(base[0], array, arguments);
    clearArguments(base, count);
    return false;
}

void Machine::putMember(NameId name, Value* base, std::uint32_t count, bool isSet, bool isOwn) {
    if (!base[0].is(Type::Object)) throw ScriptError(errors::objectRequired);
    Object* object = base[0].object();
    if (object == nullptr) throw ScriptError(errors::objectNotSet);
    const Value holder = std::move(base[0]);
    const Value& value = base[count + 1];
    if (isSet && !value.is(Type::Object)) throw ScriptError(errors::objectRequired);
    if (ClassInstance* instance = object->asInstance())
        putInstance(*instance, name, {base + 1, count + 1}, isSet, isOwn);
    else
        object->put(*this, name, {base + 1, count}, value, isSet);
    clearArguments(base, count + 1);
}

// The last of the arguments is the value.
void Machine::putInstance(ClassInstance& instance, NameId name, std::span<Value> arguments, bool isSet, bool isOwn) {
    const ScriptClass::Member* member = instance.isDetached() ? nullptr : instance.scriptClass().find(name);
    if (member == nullptr || (member->isPrivateLet && !isOwn)) throw ScriptError(errors::noSuchMember);
    const std::size_t count = arguments.size() - 1;
    Value& value = arguments.back();
    if (member->field >= 0) {
        Value& field = instance.field(member->field);
        if (count != 0)
            putIndex(field, arguments.first(count), value, isSet);
        else if (isSet)
            setValue(field, std::move(value));
        else
            letValue(field, std::move(value));
        return;
    }
    const auto& procedure = isSet ? member->set : member->let;
    if (procedure == nullptr) throw ScriptError(errors::noSuchMember);
    invoke(*procedure, &instance, arguments);
}

void Machine::newObject(Value& target, ScriptClass& scriptClass) {
    auto* instance = new ClassInstance(*this, scriptClass);
    Value made = Value::adopt(instance);
    if (scriptClass.initialize != nullptr) invoke(*scriptClass.initialize, instance, {});
    target = std::move(made);
}

// Source that is run --------------------------------------------------------------------------------------------------

void Machine::evaluateSource(Special what, Value* base) {
    Value text = std::move(base[1]);
    if (what == Special::Eval && !text.is(Type::String)) {
        base[0] = std::move(text);
        return;
    }
    if (what == Special::GetRef && !text.is(Type::String)) throw ScriptError(errors::typeMismatch);
    Value keep;
    const std::string_view source = toTextView(*this, text, keep);
    if (what == Special::GetRef) {
        const Symbol* symbol = meaningOf(names_.intern(source));
        if (symbol == nullptr || symbol->kind != Symbol::Kind::Procedure) throw ScriptError(errors::invalidCall);
        base[0] = Value::adopt(new ProcedureReference(*this, *symbol->procedure));
        return;
    }
    base[0] = runSource(source, what == Special::Eval, what == Special::ExecuteGlobal);
}

Value Machine::runSource(std::string_view source, bool isExpression, bool isGlobal) {
    checkClock();
    ModuleCompiler compiler(*symbols_, names_, *this);
    std::shared_ptr<const Procedure> procedure;
    try {
        if (isGlobal)
            procedure = compiler.compileModule(source);
        else if (isExpression)
            procedure = compiler.compileExpression(source, enclosingScope());
        else
            procedure = compiler.compileSource(source, enclosingScope());
    } catch (const SyntaxError& error) {
        throw ScriptError(static_cast<int>(error.number));
    }
    return invoke(*procedure, isGlobal ? nullptr : top().me, {});
}

// The frame whose variables are visible to source that is run now: the innermost one that is not itself source of Eval
// or Execute, so that source within source sees the variables of the same procedure.
Frame& Machine::enclosingFrame() {
    Frame* frame = &top();
    while (frame->procedure->isEvalCode && frame != frames_.get()) --frame;
    return *frame;
}

ModuleCompiler::EnclosingScope Machine::enclosingScope() {
    ModuleCompiler::EnclosingScope enclosing;
    Frame& frame = enclosingFrame();
    const Procedure& procedure = *frame.procedure;
    enclosing.owner = procedure.owner;
    if (procedure.isModule || procedure.isEvalCode) return enclosing;
    if (frame.generated == nullptr) frame.generated = new GeneratedNames;
    enclosing.result = procedure.variableNames[0];
    enclosing.findVariable = [&frame](NameId name) -> Value* {
        const auto made = frame.generated->variables.find(name);
        if (made != frame.generated->variables.end()) return &made->second;
        const auto place = frame.procedure->registers.find(name);
        if (place == frame.procedure->registers.end()) return nullptr;
        Value& variable = followed(frame.base[place->second]);
        // An unused late-bound name is no variable yet: the source may declare it, or find it outside.
        const bool isOpen = place->second >= frame.procedure->firstLate && variable.is(Type::Empty);
        return isOpen ? nullptr : &variable;
    };
    enclosing.makeVariable = [&frame](NameId name) { return &frame.generated->variables[name]; };
    enclosing.symbols = &frame.generated->symbols;
    return enclosing;
}

// Instances -----------------------------------------------------------------------------------------------------------

void Machine::addInstance(ClassInstance& instance) {
    instance.next = instances_;
    if (instances_ != nullptr) instances_->previous = &instance;
    instances_ = &instance;
}

void Machine::removeInstance(ClassInstance& instance) {
    if (instance.previous != nullptr)
        instance.previous->next = instance.next;
    else
        instances_ = instance.next;
    if (instance.next != nullptr) instance.next->previous = instance.previous;
}

// Deleting an instance releases the instances that it holds, and these release others, as deep as a list is long. So
// they are put on a list and finalized one after the other instead of within each other.
void Machine::finalize(ClassInstance& instance) noexcept {
    instance.nextFinalized = finalizing_;
    finalizing_ = &instance;
    if (deleting_) return;
    while (finalizing_ != nullptr) {
        ClassInstance* next = std::exchange(finalizing_, finalizing_->nextFinalized);
        const auto& terminate = next->scriptClass().terminate;
        if (terminate != nullptr && !next->isTerminated && !resetting_) {
            next->isTerminated = true;
            next->references = 1;
            // Its errors reach nobody, and an error that is on its way keeps what is known of it.
            ErrorTrace onItsWay = std::exchange(trace_, {});
            try {
                invoke(*terminate, next, {});
            } catch (...) {  // NOLINT(bugprone-empty-catch): see above
            }
            trace_ = std::move(onItsWay);
            if (--next->references != 0) continue;
        }
        deleting_ = true;
        delete next;
        deleting_ = false;
    }
}

}  // namespace tolvan::script
