// Machine code of procedures and loops that run often: what the rest of the engine sees of it. Without a processor and
// a library that it can be made with, or switched off, nothing here ever runs, and everything is interpreted.
#pragma once

#include "platform/script/compiler/Opcode.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

namespace tolvan::script {

class Machine;
struct Procedure;

struct MachineCodeOptions {
    static constexpr std::uint32_t never = 1u << 16;

    // Passes of a loop, or calls of a procedure, after which it is compiled.
    std::uint32_t hotAfter = 1000;
    // Exits at one place that tell of other types, until the code is made anew with what they told.
    std::uint32_t learnAfter = 2;
    // For tests: each guard fails the so-manieth time that one is reached. 0: only when it has to.
    std::uint32_t failEvery = 0;
    // For tests: counts what there is in MachineCodeCount.
    bool counts = false;

    // The start value: as the environment variable TOLVAN_MACHINE_CODE says ("off", or a number for hotAfter).
    static MachineCodeOptions fromEnvironment();
};

// Why machine code hands back to the interpreter.
enum class MachineCodeExit : std::uint8_t {
    Loop,         // the loop is over
    Pause,        // a poll asks, the clock is to be looked at, calls are too deep, or a procedure returns out of a loop
    Interpreter,  // the instruction has no machine code
    Callee,       // the called procedure has none yet
    Guard,        // an assumption of the code does not hold
    Kind,         // the same: a value was of another type
    Growth,       // a whole number became too big for its type
    Changed,      // a Class_Terminate that ran within the instruction has put something in the place of an array
};
constexpr std::size_t machineCodeExits = 8;

// What machine code did with one operation.
struct MachineCodeCount {
    std::string_view operation;
    bool hasTemplate = false;    // else its code calls the interpreter's, or leaves the instruction to it
    std::uint64_t executed = 0;  // in machine code
    std::uint64_t helped = 0;    // of these: by the interpreter's code
    // By MachineCodeExit: how many exits at such instructions were made, and how often they were taken.
    std::array<std::uint64_t, machineCodeExits> made{};
    std::array<std::uint64_t, machineCodeExits> taken{};
};

namespace native {

class ProcedureCode;

// What a procedure keeps of its machine code, which lives as long as it does.
struct CodeOfProcedure {
    std::uint32_t calls = 0;
    void* entry = nullptr;  // code from the first instruction, if there is any
    std::shared_ptr<ProcedureCode> code;
};

// The machine code of one machine.
class CodeStore {
  public:
    explicit CodeStore(Machine& machine, const MachineCodeOptions& options);
    CodeStore(const CodeStore&) = delete;
    CodeStore& operator=(const CodeStore&) = delete;
    ~CodeStore();

    static bool isAvailable();

    enum class Outcome : std::uint8_t {
        NotEntered,  // there is no code for what the registers hold: nothing happened
        GoOn,        // the interpreter goes on in the top frame, which may be another one
        Failed,      // the same, with an error, which throwError throws
        OtherLoop,   // as GoOn, but from now on it is recorded
    };
    // The machine is at the start of a loop, or of the procedure entered last, that has been there often.
    Outcome enterLoop(const Instruction* head);
    Outcome enterProcedure();
    [[noreturn]] void throwError();

    std::vector<MachineCodeCount> counts() const;
    std::size_t bytes() const;  // of machine code that exists

    // All code of one machine together; then no more is made until Machine::reset.
    static constexpr std::size_t mostBytes = std::size_t{8} << 20;

  private:
    struct Data;
    std::unique_ptr<Data> data_;
};

}  // namespace native
}  // namespace tolvan::script
