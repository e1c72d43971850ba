#include "platform/script/machine/MachineFrames.h"

#include "platform/script/machine/Recorder.h"

#include <algorithm>
#include <exception>
#include <new>

namespace tolvan::script {

namespace {

// For the time limit. Reading the clock takes longer than a pass of a loop or a call, so it is read once in so many of
// them. A call from within an operation, or an error, takes about as long as `ticksPerNestedCall` and counts as such.
constexpr int ticksPerLook = 4096;
constexpr int ticksPerNestedCall = 64;

// Counts one level of calls that take native stack.
class NestingGuard {
  public:
    explicit NestingGuard(int& nesting) : nesting_(nesting) { ++nesting_; }
    NestingGuard(const NestingGuard&) = delete;
    NestingGuard& operator=(const NestingGuard&) = delete;
    ~NestingGuard() { --nesting_; }

  private:
    int& nesting_;
};

}  // namespace

Value* Machine::freeRegisters() {
    return depth_ == 0 ? stack_ : top().base + top().procedure->registerCount;
}

Value Machine::invoke(const Procedure& procedure, Object* me, std::span<const Value> arguments) {
    if (procedure.parameterCount != arguments.size()) throw ScriptError(errors::argumentCount);
    Value* const base = freeRegisters();
    const bool fits = static_cast<std::size_t>(stackEnd_ - base) > arguments.size() + procedure.registerCount;
    ticks_ -= ticksPerNestedCall;
    if (ticks_ <= 0) slowTick();
    if (nesting_ == deepestNesting || depth_ == deepestCalls || !fits) throw ScriptError(errors::outOfStack);
    ++changes_;
    for (std::size_t i = 0; i < arguments.size(); ++i) base[i + 1] = arguments[i];
    loadArguments(procedure, base);
    if (me != nullptr) ++me->references;
    enter(procedure, base, me, true);
    const NestingGuard guard(nesting_);
    run();
    return std::move(base[0]);
}

// For callers that passed references for all arguments: replaces those that the procedure does not expect (see
// Procedure::byReference).
void Machine::loadArguments(const Procedure& procedure, Value* base) {
    for (std::uint32_t i = 0; i < procedure.parameterCount; ++i) {
        Value& argument = base[i + 1];
        if (argument.is(Type::Reference) && !procedure.byReference[i]) argument = Value(*argument.as.ref);
    }
}

void Machine::leaveSlowly(Frame& frame) {
    delete std::exchange(frame.generated, nullptr);
    if (frame.me != nullptr) const Value released = Value::adopt(std::exchange(frame.me, nullptr));
}

// Runs the procedure entered last until it returns. Throws the error that none of its procedures caught.
void Machine::run() {
    for (;;) {
        try {
            while ((recorder_ != nullptr ? execute<Mode::Recorded>() : execute<Mode::Plain>()) == Left::Loop) {
            }
            return;
        } catch (const ScriptError& error) {
            if (!recover(error)) throw;
        } catch (const std::bad_alloc&) {
            if (!recover(ScriptError(errors::outOfMemory))) throw ScriptError(errors::outOfMemory);
        }
    }
}

// Finds the procedure that goes on after an error and prepares it for that; the others are left. The error's line is
// that of the statement which failed first.
bool Machine::recover(const ScriptError& error) {
    for (bool isInnermost = true;; isInnermost = false) {
        Frame& frame = top();
        const auto next = static_cast<std::uint32_t>(frame.pc - frame.procedure->code.data());
        // In a procedure that waits for another one, pc is the instruction after the call.
        const std::uint32_t pc = isInnermost ? next : next - 1;
        const int line = static_cast<int>(frame.procedure->lineAt(pc));
        if (!trace_.isRaised) {
            trace_.isRaised = true;
            trace_.line = line;
            if (!isCaught(error)) {
                trace_.columns = frame.procedure->columnsAt(pc);
                trace_.operation = findFailedOperation(*this, frame, pc);
                if (isWatched_) keepErrorState(line);
            }
        }
        if (frame.resumeNext && error.number != errors::timedOut) {
            trace_ = {};
            ticks_ -= ticksPerNestedCall;
            err_->set(error);
            frame.pc = frame.procedure->code.data() + frame.procedure->statementAfter(pc);
            return true;
        }
        if (trace_.calls.size() < ErrorReport::deepestStack)
            trace_.calls.push_back({frame.procedure->name, line, frame.procedure->columnsAt(pc)});
        const bool isEntry = frame.isEntry;
        if (recorder_ != nullptr) recorder_->leaving(frame);
        leave();
        if (!isEntry) continue;
        // The caller gets the error and no result.
        releaseHeld(*frame.base);
        return false;
    }
}

// Whether one of the procedures that are running goes on after the error.
bool Machine::isCaught(const ScriptError& error) const {
    if (error.number == errors::timedOut) return false;
    return std::any_of(frames_.get(), frames_.get() + depth_, [](const Frame& frame) { return frame.resumeNext; });
}

void Machine::report(ErrorReport& report) {
    report.line = trace_.line;
    report.column = static_cast<int>(trace_.columns.start);
    report.endColumn = static_cast<int>(trace_.columns.end);
    report.called = std::move(trace_.operation.called);
    report.operands = std::move(trace_.operation.operands);
    for (const ErrorTrace::Call& call : trace_.calls)
        report.stack.push_back({call.procedure == 0 ? std::string() : std::string(names_.spelling(call.procedure)),
                                call.line, static_cast<int>(call.columns.start), static_cast<int>(call.columns.end)});
}

void Machine::start() {
    if (depth_ == 0) symbols_->dropRetired();
    if (depth_ == 0) switchRecording();
    ticks_ = ticksPerLook;
    trace_ = {};
    if (timeout >= 0) deadline_ = std::chrono::steady_clock::now() + std::chrono::milliseconds(timeout);
}

void Machine::checkClock() {
    if (timeout >= 0 && std::chrono::steady_clock::now() >= deadline_) throw ScriptError(errors::timedOut);
}

// The count starts again only while there is time left. Once the time is over every tick raises the error anew, since a
// Class_Terminate on the way may have swallowed it.
void Machine::slowTick() {
    checkClock();
    ticks_ = ticksPerLook;
}

void Machine::setOnError(bool resumeNext) {
    top().resumeNext = resumeNext;
    err_->clear();
}

}  // namespace tolvan::script
