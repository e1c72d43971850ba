// Runs compiled procedures. One stack of registers; calls between procedures of the script take no native stack, calls
// that start from within an operation (a default member, Eval, Class_Terminate) do, and are limited in depth.
//
// Each register always holds a valid value. Registers above those of the running procedure may hold old numbers, but
// nothing that has to be released.
#pragma once

#include "platform/script/Context.h"
#include "platform/script/Inspection.h"
#include "platform/script/Operators.h"
#include "platform/script/ScriptError.h"
#include "platform/script/compiler/ModuleCompiler.h"
#include "platform/script/compiler/SymbolTable.h"
#include "platform/script/machine/ClassInstance.h"
#include "platform/script/machine/ErrObject.h"
#include "platform/script/machine/FailedOperation.h"
#include "platform/script/native/MachineCode.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tolvan::script {

// The names that source run by Execute has generated in a procedure.
struct GeneratedNames {
    std::map<NameId, Value> variables;
    SymbolTable::Map symbols;  // procedures, constants, classes
};

// What is kept of the procedures that an error ended, the innermost first.
struct ErrorState {
    struct Level {
        std::string procedure;
        int line;
        std::vector<InspectedVariable> variables;
    };
    std::vector<Level> levels;
};

struct Frame {
    const Procedure* procedure;
    const Instruction* pc;      // where to go on; kept up to date only while another frame or the host runs
    Value* base;                // R[0]
    Object* me;                 // counted; null outside methods
    GeneratedNames* generated;  // owned; null as a rule
    bool resumeNext;
    bool isEntry;  // called from C++: returning ends the dispatch loop
};

// An error on its way through the procedures that it leaves.
struct ErrorTrace {
    struct Call {
        NameId procedure;
        int line;
        Columns columns;
    };
    bool isRaised = false;
    int line = 0;     // of the statement that raised it
    Columns columns;  // of what raised it, in that line
    FailedOperation operation;
    std::vector<Call> calls;            // the procedures that it left, the innermost first
    std::unique_ptr<ErrorState> state;  // if the engine is watched and nothing catches the error
};

class Recorder;
class Recording;

class Machine : public Context {
  public:
    Machine();
    ~Machine();

    Names& names() { return names_; }
    SymbolTable& symbols() { return *symbols_; }
    ErrObject& err() { return *err_; }

    // Discards all code, variables and objects.
    void reset();

    // All three throw ScriptError, and SyntaxError for what cannot be compiled.
    void addModule(std::string_view source);
    Value evaluate(std::string_view expression);
    // Arguments may be References. `me` is the instance of a method.
    Value invoke(const Procedure& procedure, Object* me, std::span<const Value> arguments);

    // In milliseconds; -1: no limit.
    int timeout = -1;
    // The host begins a load, a run or an evaluation: the time limit counts from here.
    void start();

    // Fills in what is known of the error that left the outermost procedure: its line and what took part in it.
    void report(ErrorReport& report);
    // The host asks for a procedure that does not exist.
    void setFailedCall(std::string_view procedure) { trace_.operation.called = procedure; }

    // See Inspection.h. Concerns the modules that are loaded from now on.
    void setWatched(bool on);
    // See Executor.
    void setRecording(Recording* recording);

    // Concerns what becomes hot from now on.
    void setMachineCode(const MachineCodeOptions& options);
    const native::CodeStore* machineCode() const { return machineCode_.get(); }

    void addInstance(ClassInstance& instance);
    void removeInstance(ClassInstance& instance);
    // Runs Class_Terminate of an instance that nobody holds any more, and deletes it.
    void finalize(ClassInstance& instance) noexcept;

    // Registers of all procedures that can be active at once (16 bytes each), and procedures: as many as a script
    // needs that recurses 20,000 deep. Beyond: error 28.
    static constexpr std::size_t stackSize = std::size_t{1} << 18;
    static constexpr std::size_t deepestCalls = 20000;
    // Calls that take native stack, one within the other.
    static constexpr int deepestNesting = 100;

  private:
    // For Inspection (MachineInspection.cpp) and Recorder.
    friend class Inspection;
    friend class Recorder;
    // For machine code, which does what the loop of instructions does.
    friend class native::CodeStore;
    int lineOf(const Frame& frame) const;
    std::vector<InspectedVariable> variablesOf(const Frame& frame);
    std::vector<InspectedVariable> outsideVariables();
    void keepErrorState(int line);
    Value* findVariableOf(std::size_t level, NameId name);
    bool assignVariable(std::size_t level, std::string_view name, std::span<const std::uint32_t> indexes,
                        const Value& value);

    // Running (MachineDispatch.cpp, MachineFrames.cpp).
    void run();
    // Until the procedure entered last has returned, or has to be gone on with in the other loop.
    enum class Left : std::uint8_t { Procedure, Loop };
    enum class Mode : std::uint8_t { Plain, Recorded, OneInstruction };
    template <Mode mode>
    Left execute();
    // Counts a pass of the loop at `head`, a call of a procedure; whether there have been many.
    bool isHot(const Instruction* head) {
        if (head->a >= hotPasses_) [[unlikely]]
            return true;
        ++const_cast<Instruction*>(head)->a;
        return false;
    }
    bool isHot(const Procedure& procedure) { return procedure.machineCode.calls++ >= hotCalls_; }
    native::CodeStore::Outcome enterHotLoop(const Instruction* head);
    native::CodeStore::Outcome enterHotProcedure();
    // To the recording that the host wants, unless calls within each other are under way.
    void switchRecording();
    void endRecording();
    bool recover(const ScriptError& error);
    bool isCaught(const ScriptError& error) const;
    Frame& top() { return frames_[depth_ - 1]; }
    Value* freeRegisters();
    void enter(const Procedure& procedure, Value* base, Object* me, bool isEntry);
    void loadArguments(const Procedure& procedure, Value* base);
    void leave();
    void leaveSlowly(Frame& frame);
    void slowTick();
    void checkClock();

    // Meanings of instructions: assignments (MachineOperations.cpp).
    void letValue(Value& target, Value&& value);
    void setValue(Value& target, Value&& value);
    void let(Value& target, const Value& value);
    bool isTrue(const Value& value);
    // An operator on operands of any type; not inlined into the loop of instructions.
    template <BinaryOperator apply>
    [[gnu::noinline]] void slow(Value& target, const Value& left, const Value& right) {
        target = apply(*this, left, right);
    }
    void slowAdd(Value& target, const Value& left, const Value& right);
    void slowAddInteger(Value& target, const Value& left, std::int16_t right);
    void slowConcatenate(Value& target, const Value& left, const Value& right);
    void makeOperand(Value& value);
    void append(Value& target, const Value& tail);
    void appendParts(Value& target, Value& earlier, std::span<const Value> parts);
    void negateInto(Value& target, const Value& of);
    void plusInto(Value& target, const Value& of);
    void notInto(Value& target, const Value& of);
    void isInto(Value& target, const Value& left, const Value& right);
    Order slowCompare(const Value& left, const Value& right, Literal literal);
    Value countable(const Value& of);
    bool prepareFor(Value& counter, std::span<Value, 3> header);
    bool slowForNext(Value& counter, const Value& limit, const Value& step);

    // Arrays (MachineElements.cpp).
    Value& element(Value& array, std::span<const Value> indexes);
    std::size_t elementNumber(const ArrayCell& cell, std::span<const Value> indexes);
    void index(Value& target, Value& array, std::span<const Value> indexes);
    void indexLet(Value& target, Value& array, std::span<const Value> indexes);
    void putIndex(Value& array, std::span<const Value> indexes, const Value& value, bool isSet);
    void appendElement(Value& array, std::span<const Value> indexes, const Value& tail);
    void referElement(Value& target, Value& array, std::span<const Value> indexes);
    void pinArray(Value& target, Value& array);
    void makeArray(Value& target, std::span<const Value> bounds);
    void reDim(Value& target, std::span<const Value> bounds, bool preserve);
    void erase(Value& target);
    void prepareEach(Value* state, Value& group);
    bool nextOfEach(Value* state, Value& target);

    // Calls and objects (MachineMemberCalls.cpp). Those that return bool tell whether a procedure was entered.
    void callBuiltin(const Builtin& builtin, Value* base, std::uint32_t count);
    void callHost(const HostMember& member, Value* base, std::uint32_t count);
    void putHost(const HostMember& member, Value* base, std::uint32_t count);
    bool callMember(NameId name, Value* base, std::uint32_t count, bool isOwn);
    bool callInstance(ClassInstance& instance, NameId name, Value* base, std::uint32_t count, bool isOwn);
    bool callValue(Value* base, std::uint32_t count, bool isStatement);
    void putMember(NameId name, Value* base, std::uint32_t count, bool isSet, bool isOwn);
    void putInstance(ClassInstance& instance, NameId name, std::span<Value> arguments, bool isSet, bool isOwn);
    void newObject(Value& target, ScriptClass& scriptClass);
    enum class AfterPoll : std::uint8_t { Same, OtherLoop };  // recorded or not, as before
    AfterPoll pollHost(const HostMember& member, Value& answer);
    void evaluateSource(Special what, Value* base);
    Value runSource(std::string_view source, bool isExpression, bool isGlobal);
    Frame& enclosingFrame();
    ModuleCompiler::EnclosingScope enclosingScope();

    // Late binding (MachineLateNames.cpp).
    const Symbol* meaningOf(NameId name);
    Value* lateVariable(Value& own, const LateUse& use, const Symbol*& meaning);
    void findVariable(Value& own, const LateUse& use);
    bool callLate(Value& own, const LateUse& use, Value* base, std::uint32_t count);
    bool callMeaning(const Symbol& meaning, const LateUse& use, Value* base, std::uint32_t count);
    void newLate(Value& target, NameId name);
    void setOnError(bool resumeNext);

    Names names_;
    ErrObject* err_;  // held by errValue_
    Value errValue_;
    std::unique_ptr<SymbolTable> symbols_;

    Value* stack_;  // stackSize registers; the pages that are never used are never touched
    Value* stackEnd_;
    std::unique_ptr<Frame[]> frames_;
    std::size_t depth_ = 0;
    int nesting_ = 0;
    int ticks_ = 0;
    std::uint32_t changes_ = 0;  // that C++ may have made: calls of procedures from there, and assignments
    std::chrono::steady_clock::time_point deadline_;
    ErrorTrace trace_;
    bool isWatched_ = false;
    MachineCodeOptions machineCodeOptions_ = MachineCodeOptions::fromEnvironment();
    std::uint32_t hotPasses_ = MachineCodeOptions::never;
    std::uint32_t hotCalls_ = std::numeric_limits<std::uint32_t>::max();
    std::unique_ptr<native::CodeStore> machineCode_;  // made when something is hot
    Recording* recording_ = nullptr;                  // as the host wants it
    std::unique_ptr<Recorder> recorder_;              // as it is

    ClassInstance* instances_ = nullptr;
    ClassInstance* finalizing_ = nullptr;
    bool deleting_ = false;
    bool resetting_ = false;
};

}  // namespace tolvan::script
