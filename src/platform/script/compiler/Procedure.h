// A compiled procedure.
#pragma once

#include "platform/script/Heap.h"
#include "platform/script/Value.h"
#include "platform/script/compiler/Opcode.h"
#include "platform/script/native/MachineCode.h"
#include "platform/script/syntax/Ast.h"
#include "platform/script/syntax/Names.h"

#include <cstdint>
#include <unordered_map>
#include <vector>

namespace tolvan::script {

class ScriptClass;

// A statement begins at the instruction `pc`. An error at it or after it, up to the next mark, is an error of this
// line.
struct LineMark {
    std::uint32_t pc;
    std::uint32_t line;
};

// The instructions from `pc` to the next mark belong to this place of the statement's line.
struct PlaceMark {
    std::uint32_t pc;
    Columns columns;
};

// One compiled procedure. Its registers: R[0] the result, then the parameters, the other variables, and temporaries.
struct Procedure {
    NameId name = 0;
    ProcedureKind kind = ProcedureKind::Sub;
    ScriptClass* owner = nullptr;  // of a method
    bool isModule = false;         // the statements outside procedures: their variables are the module's
    bool isEvalCode = false;       // source that Eval or Execute runs: sees the names of the procedure that runs it
    std::vector<Instruction> code;
    std::vector<Value> constants;
    std::vector<LineMark> lines;    // by pc
    std::vector<PlaceMark> places;  // by pc

    std::uint32_t parameterCount = 0;
    std::uint32_t variableCount = 0;  // registers that start as Empty: result, parameters, variables
    std::uint32_t registerCount = 0;  // all
    // From here on `code` has what is rarely needed: answers to polls, the rest of conditions that are decided.
    std::uint32_t coldCode = 0;
    // For each parameter whether its register holds a reference to the caller's variable; otherwise it holds a value.
    // A call that was compiled with the procedure known passes just that. One that was not (a late-bound call, a call
    // of a method) passes references for all parameters; entering the procedure replaces those that it does not expect
    // by their values.
    std::vector<bool> byReference;
    bool hasPolls = false;
    // It replaced another procedure, and code that was compiled for that one may pass references where values are
    // expected: each call checks.
    bool checksArguments = false;

    // The names of R[0], R[1], ...; 0 where there is none. And the other way round, if it runs source (Execute).
    std::vector<NameId> variableNames;
    std::unordered_map<NameId, std::uint32_t> registers;
    // The registers from here on belong to names that are bound late: see ProcedureScope::firstLate.
    std::uint32_t firstLate = 0;

    mutable native::CodeOfProcedure machineCode;

    HeapCharge memory;  // of this procedure: code, constants and tables
    void countIn(Heap& heap);

    std::uint32_t lineAt(std::uint32_t pc) const;
    Columns columnsAt(std::uint32_t pc) const;
    // The statement after the one at pc, in the order of the code.
    std::uint32_t statementAfter(std::uint32_t pc) const;
};

}  // namespace tolvan::script
