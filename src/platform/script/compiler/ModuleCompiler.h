// Compiles modules, and the source that Eval and Execute run. What a module declares becomes known to the engine only
// if all of it compiles.
//
// Names get their meaning here. Where a later module gives one another meaning, the procedures of the earlier modules
// that use it are compiled again, for the next time that they are called. Procedures that are running already see new
// names only if their module, or one before it, runs source with Execute: then names that nobody declared are bound
// late (see ProcedureScope::firstLate).
#pragma once

#include "platform/script/Context.h"
#include "platform/script/compiler/Scope.h"
#include "platform/script/compiler/SymbolTable.h"

#include <memory>
#include <string_view>
#include <unordered_map>

namespace tolvan::script {

class ModuleCompiler {
  public:
    ModuleCompiler(SymbolTable& symbols, Names& names, Context& context)
        : symbols_(symbols), names_(names), context_(context) {}

    // The names of the procedure in which Execute or Eval stands, and who makes new variables there; within the
    // statements outside procedures there is none.
    struct EnclosingScope {
        // Asked only for the names that the source uses: the procedure may have many. Null for a name that is no
        // variable.
        std::function<Value*(NameId)> findVariable;
        NameId result = 0;  // the function's name, which is the variable of its result
        std::function<Value*(NameId)> makeVariable;
        SymbolTable::Map* symbols =
            nullptr;  // procedures, constants and classes that Execute has defined in the procedure
        ScriptClass* owner = nullptr;
    };

    // The statements of the module outside procedures, to be run. Throws SyntaxError.
    std::shared_ptr<const Procedure> compileModule(std::string_view source);
    std::shared_ptr<const Procedure> compileSource(std::string_view source, const EnclosingScope& enclosing);
    // A procedure that returns the value of the expression.
    std::shared_ptr<const Procedure> compileExpression(std::string_view source, const EnclosingScope& enclosing);

  private:
    struct Work;
    std::shared_ptr<Procedure> compile(Work& work, std::string_view source);
    void read(Work& work, std::string_view source);
    void declare(Work& work);
    void declareClass(Work& work, const ClassNode& node);
    void addMethod(Work& work, ScriptClass& owner, const ProcedureNode& node);
    void findNames(Work& work);
    void findNamesOf(Work& work, ProcedureScope& scope, const Block& body);
    void compileProcedures(Work& work);
    std::shared_ptr<Procedure> generate(Work& work, ProcedureScope& scope);
    void replace(std::shared_ptr<const Procedure>& place, std::shared_ptr<const Procedure> procedure);
    void finishProcedure(Work& work, ProcedureScope& scope, std::shared_ptr<Procedure> procedure);
    void finishMethod(ScriptClass& owner, const ProcedureNode& node, std::shared_ptr<const Procedure> procedure);
    void leaveNamesOpen(const Module& module);
    void recompileUsers(const std::vector<NameId>& changed);
    void recompile(const std::shared_ptr<LoadedModule>& module);

    SymbolTable& symbols_;
    Names& names_;
    Context& context_;
};

}  // namespace tolvan::script
