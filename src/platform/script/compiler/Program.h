// What a compiled module consists of: procedures, classes, and what they refer to.
#pragma once

#include "platform/script/Heap.h"
#include "platform/script/HostObject.h"
#include "platform/script/Value.h"
#include "platform/script/compiler/Opcode.h"
#include "platform/script/syntax/Ast.h"
#include "platform/script/syntax/Names.h"

#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace tolvan::script {

class ScriptClass;

// A statement begins at the instruction `pc`. An error at it or after it, up to the next mark, is an error of this
// line.
struct LineMark {
    std::uint32_t pc;
    std::uint32_t line;
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
    std::vector<LineMark> lines;  // by pc

    std::uint32_t parameterCount = 0;
    std::uint32_t variableCount = 0;  // registers that start as Empty: result, parameters, variables
    std::uint32_t registerCount = 0;  // all
    // For each parameter whether the code expects a reference to the caller's variable in its register. For the others
    // a caller that was compiled with the procedure in view passes plain values. A caller that was not (a late-bound
    // call, a method) passes references for all; entering the procedure replaces those that it does not expect by their
    // values.
    std::vector<bool> byReference;
    // It replaced another procedure, and code that was compiled for that one may pass references where values are
    // expected: each call checks.
    bool checksArguments = false;

    // The names of R[0], R[1], ...; 0 where there is none. And the other way round, if the procedure runs texts.
    std::vector<NameId> variableNames;
    std::unordered_map<NameId, std::uint32_t> registers;
    // The registers from here on belong to names that are bound late: see ProcedureScope::firstLate.
    std::uint32_t firstLate = 0;

    HeapCharge memory;  // what all of it takes
    void countIn(Heap& heap);

    std::uint32_t lineAt(std::uint32_t pc) const;
    // The statement after the one at pc, in the order of the code.
    std::uint32_t statementAfter(std::uint32_t pc) const;
};

struct LoadedModule;

// A procedure's place under its name; a later definition takes it over.
struct ProcedureSlot {
    std::shared_ptr<const Procedure> procedure;
    std::shared_ptr<const LoadedModule> module;  // that the procedure is from; null: from the source of an Execute
};

// One member of a host object, looked up once.
struct HostMember {
    HostObject* object;
    int member;
    NameId name;  // one that it has been called by
};

// A class of a script. Members that are private are found only by the class's own code.
class ScriptClass {
  public:
    struct Member {
        std::shared_ptr<const Procedure> call;  // Sub, Function, Property Get
        std::shared_ptr<const Procedure> let;
        std::shared_ptr<const Procedure> set;
        int field = -1;
        bool isPrivate = false;     // of field and call
        bool isPrivateLet = false;  // of let and set
    };

    NameId name = 0;
    std::string spelling;
    std::unordered_map<NameId, Member> members;
    std::vector<std::vector<std::uint32_t>> fieldBounds;  // extents of the fields that are arrays from the start
    std::vector<bool> fieldIsArray;
    NameId defaultMember = defaultMemberName;  // its name, if there is one
    std::shared_ptr<const Procedure> initialize;
    std::shared_ptr<const Procedure> terminate;
    std::shared_ptr<const LoadedModule> module;

    std::size_t fieldCount() const { return fieldIsArray.size(); }
    const Member* find(NameId member) const {
        const auto place = members.find(member == defaultMemberName ? defaultMember : member);
        return place == members.end() ? nullptr : &place->second;
    }
};

// A module with procedures or classes, as long as one of them is in use. Its procedures are compiled again when one of
// the names that it uses gets another meaning.
struct LoadedModule {
    void keepSource(std::string_view text, Heap& heap) {
        memory = HeapCharge(&heap);
        memory.add(text.size());
        source = text;
    }

    std::string source;
    HeapCharge memory;
    std::unordered_map<NameId, ScriptClass*> classes;
    std::unordered_set<NameId> uses;  // a change of their meaning changes the code
};

}  // namespace tolvan::script
