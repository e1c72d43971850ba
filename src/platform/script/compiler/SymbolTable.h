// The names that are known outside procedures: those of scripts, hosts and the language, and what they stand for.
#pragma once

#include "platform/script/Builtin.h"
#include "platform/script/compiler/LoadedModule.h"

#include <deque>
#include <memory>
#include <unordered_map>
#include <vector>

namespace tolvan::script {

// The functions that need the compiler.
enum class Special : std::uint8_t { Eval, Execute, ExecuteGlobal, GetRef };

// What a name stands for outside procedures.
struct Symbol {
    enum class Kind : std::uint8_t {
        None,
        Variable,
        Constant,
        Procedure,
        Class,
        HostObject,  // constant: the Object
        HostMember,
        Builtin,
        Special,
    };
    Kind kind = Kind::None;
    bool isImplicit = false;  // a variable that nobody declared
    Special special = Special::Eval;
    Value* variable = nullptr;
    ProcedureSlot* procedure = nullptr;
    ScriptClass* scriptClass = nullptr;
    HostObject* host = nullptr;
    const HostMember* member = nullptr;
    const Builtin* builtin = nullptr;
    Value constant;
};

// Finds the names of the scripts first, then those of hosts, then the language's
// own. Owns what they stand for, at places that do not move.
class SymbolTable {
  public:
    using Map = std::unordered_map<NameId, Symbol>;

    // `errObject` is what the name Err stands for.
    SymbolTable(Names& names, Value errObject, Heap& heap);
    SymbolTable(const SymbolTable&) = delete;
    SymbolTable& operator=(const SymbolTable&) = delete;

    // Null for an unknown name. The symbol stays where it is until its name is defined anew.
    const Symbol* find(NameId name);

    void define(NameId name, Symbol symbol) { scripts_[name] = std::move(symbol); }
    Value* makeVariable() { return &variables_.emplace_back(); }
    ProcedureSlot* makeSlot() { return &slots_.emplace_back(); }
    ScriptClass* makeClass() {
        memory_.add(sizeof(ScriptClass));
        return &classes_.emplace_back();
    }

    // `reference` is the Object value through which scripts hold the host's object.
    void addHost(NameId name, HostObject& object, Value reference, bool membersToo);
    // The same place for the same member each time.
    const HostMember* hostMember(HostObject& object, int member, NameId name);

    // Keeps a procedure that another one took the place of, until nothing runs: it may be running.
    void retire(std::shared_ptr<const Procedure> procedure) { retired_.push_back(std::move(procedure)); }
    void dropRetired() { retired_.clear(); }

    using Modules = std::vector<std::shared_ptr<LoadedModule>>;
    // Those that are still in use; and of them those whose code depends on the meaning of a name.
    Modules modules() { return modules_.all(); }
    Modules usersOf(NameId name);
    void addModule(const std::shared_ptr<LoadedModule>& module) { modules_.add(module); }
    void addUses(const std::shared_ptr<LoadedModule>& module, const std::vector<NameId>& names);

    // For a user (of a number from nextUser) that collects each name once: true the first time that it asks for a name.
    bool isFirstUse(NameId name, std::uint32_t user);
    std::uint32_t nextUser() { return ++lastUser_; }

    // Whether a module was loaded that runs source with Execute, and so can define names while procedures run.
    bool isLate = false;
    // Whether each poll asks by itself, even where it would get the answer of the one before.
    bool keepsEveryPoll = false;

    bool isErr(NameId name) const { return name == err_; }
    // Empties all variables of scripts: what they hold is released while the code of its Class_Terminate still exists.
    void clearVariables();
    template <class Action>
    void forEachVariable(Action action) const {
        for (const auto& [name, symbol] : scripts_)
            if (symbol.kind == Symbol::Kind::Variable) action(name, *symbol.variable);
    }

    // Of a variable outside procedures; 0 if it is none. Slow.
    NameId nameOf(const Value* variable) const;

  private:
    const Symbol* findAddedMember(NameId name);
    void removeHost(const HostObject* object);

    Names& names_;
    HeapCharge memory_;
    NameId err_;
    Map scripts_;
    Map hosts_;
    Map language_;
    std::deque<Value> variables_;
    std::deque<ProcedureSlot> slots_;
    std::deque<ScriptClass> classes_;
    std::vector<std::shared_ptr<const Procedure>> retired_;
    // Modules that may be gone.
    class ModuleList {
      public:
        void add(const std::shared_ptr<LoadedModule>& module);
        Modules all() const;

      private:
        std::vector<std::weak_ptr<LoadedModule>> modules_;
    };
    ModuleList modules_;
    std::unordered_map<NameId, ModuleList> users_;
    std::vector<std::uint32_t> usedBy_;  // by NameId
    std::uint32_t lastUser_ = 0;
    std::deque<HostMember> hostMembers_;
    std::vector<HostObject*> global_;  // those whose members are names of their own
};

}  // namespace tolvan::script
