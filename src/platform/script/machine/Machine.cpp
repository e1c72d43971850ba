#include "platform/script/machine/Machine.h"

#include "platform/script/machine/Recorder.h"

#include <cstdlib>
#include <new>

namespace tolvan::script {

Machine::Machine()
    : err_(new ErrObject(names_)),
      errValue_(Value::adopt(err_)),
      symbols_(std::make_unique<SymbolTable>(names_, errValue_, heap())),
      stack_(static_cast<Value*>(std::calloc(stackSize, sizeof(Value)))),
      stackEnd_(stack_ + stackSize),
      frames_(std::make_unique_for_overwrite<Frame[]>(deepestCalls)) {
    if (stack_ == nullptr) throw std::bad_alloc();
    names_.countIn(heap());
    setMachineCode(machineCodeOptions_);
}

Machine::~Machine() {
    reset();
    std::free(stack_);
}

void Machine::reset() {
    resetting_ = true;
    trace_ = {};
    endRecording();
    symbols_->clearVariables();
    // The instances that are left refer to each other in a circle, or the host holds them.
    while (instances_ != nullptr) {
        ClassInstance* instance = instances_;
        const Value holder = [instance] {
            ++instance->references;
            return Value::adopt(instance);
        }();
        removeInstance(*instance);
        instance->next = instance->previous = nullptr;
        instance->detach();
    }
    names_ = Names();
    err_ = new ErrObject(names_);
    errValue_ = Value::adopt(err_);
    symbols_ = std::make_unique<SymbolTable>(names_, errValue_, heap());
    names_.countIn(heap());
    setWatched(isWatched_);
    machineCode_.reset();
    randomSeed = firstRandomSeed;
    resetting_ = false;
}

void Machine::setWatched(bool on) {
    isWatched_ = symbols_->keepsEveryPoll = on;
}

void Machine::setMachineCode(const MachineCodeOptions& options) {
    machineCodeOptions_ = options;
    const bool isOff = options.hotAfter >= MachineCodeOptions::never || !native::CodeStore::isAvailable();
    hotPasses_ = isOff ? MachineCodeOptions::never : options.hotAfter;
    hotCalls_ = isOff ? std::numeric_limits<std::uint32_t>::max() : options.hotAfter;
}

native::CodeStore::Outcome Machine::enterHotLoop(const Instruction* head) {
    if (machineCode_ == nullptr) machineCode_ = std::make_unique<native::CodeStore>(*this, machineCodeOptions_);
    return machineCode_->enterLoop(head);
}

native::CodeStore::Outcome Machine::enterHotProcedure() {
    if (machineCode_ == nullptr) machineCode_ = std::make_unique<native::CodeStore>(*this, machineCodeOptions_);
    return machineCode_->enterProcedure();
}

void Machine::setRecording(Recording* recording) {
    recording_ = recording;
    if (recording == nullptr && depth_ == 0) endRecording();
}

void Machine::switchRecording() {
    const Recording* const current = recorder_ != nullptr ? &recorder_->recording() : nullptr;
    if (current == recording_ || nesting_ > 1) return;
    endRecording();
    if (recording_ == nullptr) return;
    recorder_ = std::make_unique<Recorder>(*this, *recording_);
    heap().setReserve(recorder_.get());
}

void Machine::endRecording() {
    heap().setReserve(nullptr);
    recorder_.reset();
}

void Machine::addModule(std::string_view source) {
    const auto body = ModuleCompiler(*symbols_, names_, *this).compileModule(source);
    invoke(*body, nullptr, {});
}

Value Machine::evaluate(std::string_view expression) {
    const auto procedure = ModuleCompiler(*symbols_, names_, *this).compileExpression(expression, {});
    return invoke(*procedure, nullptr, {});
}

}  // namespace tolvan::script
