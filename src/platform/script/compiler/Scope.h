// The names that code sees while it is being compiled: those of its procedure, its class, its module and the engine.
#pragma once

#include "platform/script/compiler/SymbolTable.h"
#include "platform/script/syntax/Ast.h"

#include <cstdint>
#include <functional>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace tolvan::script {

// The names of a module on top of those that its engine knows already. They become known to others only when all of the
// module is compiled.
class ModuleScope {
  public:
    // `locals`: for source that Execute runs within a procedure, the procedures, constants and classes that such source
    // declared there before; what this module declares joins them. Null: it joins the engine's names.
    ModuleScope(SymbolTable& engine, Names& names, SymbolTable::Map* locals = nullptr)
        : engine_(engine), names_(names), locals_(locals), user_(engine.nextUser()) {}

    SymbolTable& engine() { return engine_; }
    Names& names() { return names_; }

    const Symbol* find(NameId name);
    // Null if this module has not defined the name.
    Symbol* findPending(NameId name);
    // What the name stands for where a definition of it would go; null: nothing.
    const Symbol* findEarlier(NameId name);
    void define(NameId name, Symbol symbol) { pending_[name] = std::move(symbol); }
    void defineVariable(NameId name, bool isImplicit = false);
    // Returns the names that others may have used with another meaning.
    std::vector<NameId> commit();
    // The names that were looked up: where one gets another meaning the code changes.
    const std::vector<NameId>& uses() const { return uses_; }

    // Which parameters a procedure takes as references; null if it is not known.
    void setModes(const ProcedureSlot* slot, const std::vector<bool>& modes) { modes_[slot] = &modes; }
    const std::vector<bool>* modesOf(const ProcedureSlot* slot) const;

    bool optionExplicit = false;
    bool hasClasses = false;
    bool isLate = false;  // see ProcedureScope::firstLate

  private:
    const Symbol* findOutside(NameId name);

    SymbolTable& engine_;
    Names& names_;
    SymbolTable::Map* locals_;
    SymbolTable::Map pending_;
    std::uint32_t user_;
    std::vector<NameId> uses_;
    std::unordered_map<const ProcedureSlot*, const std::vector<bool>*> modes_;
};

// The names of one procedure, and how its parameters are handled.
//
// Arguments are passed by reference. Where a procedure never changes a parameter and nobody else can change the
// caller's variable meanwhile, nobody can tell a reference from a copy, and the parameter is a plain register.
struct ProcedureScope {
    const ProcedureNode* node = nullptr;  // null: the statements outside procedures
    ScriptClass* owner = nullptr;
    ProcedureSlot* slot = nullptr;     // outside classes
    std::vector<NameId> variables{0};  // R[0], R[1], ...; 0 where a register has no name
    std::unordered_map<NameId, std::uint32_t> registers;
    // Late binding: where Execute can define names at any time, a name that nothing has declared yet is looked up each
    // time that it is used. The registers from this one on belong to such names. As long as nothing is found the
    // register is a variable of the procedure; afterwards it refers to the variable that was found.
    std::uint32_t firstLate = UINT32_MAX;
    std::unordered_map<NameId, Value> constants;
    // For the source that Execute runs: the variables of the enclosing procedure, and those that were asked for
    // already.
    std::function<Value*(NameId)> findOuter;
    mutable std::unordered_map<NameId, Value*> enclosing;
    NameId enclosingResult = 0;     // of these, the one that is the result of a function
    std::vector<bool> byReference;  // of R[1], R[2], ...: the parameters
    bool runsSource = false;        // with Eval, Execute or ExecuteGlobal, which may change any variable
    bool handlesErrors = false;     // On Error Resume Next

    bool hasResult() const {
        return node != nullptr && (node->kind == ProcedureKind::Function || node->kind == ProcedureKind::PropertyGet);
    }
    bool isByReference(std::uint32_t reg) const {
        return reg >= 1 && reg <= byReference.size() && byReference[reg - 1];
    }
    // Whether the procedure itself gives the name a meaning.
    bool knows(NameId name) const {
        return registers.count(name) + constants.count(name) != 0 || outerVariable(name) != nullptr;
    }
    // Null if the enclosing procedure has no such variable.
    Value* outerVariable(NameId name) const;
    bool isLate(NameId name) const {
        const auto reg = registers.find(name);
        return reg != registers.end() && reg->second >= firstLate;
    }
    void addVariable(NameId name) {
        registers[name] = static_cast<std::uint32_t>(variables.size());
        variables.push_back(name);
    }
};

// The variable at the bottom of a target or argument: a in "a", "a(1)", "a(1)(2)"; null where there is none.
const Expr* rootName(const Expr& expression);

// Fills in the names of a procedure. `becomesLocal` is asked about each name that nothing gives a meaning: whether it
// becomes a variable of the procedure. Throws SyntaxError 1041.
void findVariables(ProcedureScope& scope, const Block& body, ModuleScope& module, const std::vector<Value>& literals,
                   const std::function<bool(NameId)>& becomesLocal);

// Decides which parameters are references, for all procedures of a module at once; the one without a node stands for
// the statements outside procedures.
void findReferences(std::vector<ProcedureScope*>& procedures, const Block& outside, ModuleScope& module);

// The value of a constant expression: a literal, perhaps in parentheses and after signs.
Value constantOf(const Expr& expression, const std::vector<Value>& literals);

}  // namespace tolvan::script
