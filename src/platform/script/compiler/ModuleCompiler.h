// Compiles modules and the texts of Eval and Execute. What a module declares becomes known to the engine only if all
// of it compiles.
//
// Names get their meaning here, once: code that is loaded already does not see what a later module declares, except
// that a procedure defined anew takes the place of the old one for all callers. (Parameters that the old one did not
// change are copies for callers compiled before, even if the new one changes them.)
#pragma once

#include "platform/script/Context.h"
#include "platform/script/compiler/Program.h"
#include "platform/script/compiler/Scope.h"

#include <memory>
#include <string_view>
#include <unordered_map>

namespace tolvan::script {

class ModuleCompiler {
  public:
    ModuleCompiler(SymbolTable& symbols, Names& names, Context& context)
        : symbols_(symbols), names_(names), context_(context) {}

    // The variables of the procedure in which Execute or Eval stands, and who makes new ones there.
    struct Surroundings {
        std::unordered_map<NameId, Value*> variables;
        std::function<Value*(NameId)> makeVariable;
        ScriptClass* owner = nullptr;
    };

    // The statements of the module outside procedures, to be run. Throws SyntaxError.
    std::shared_ptr<const Procedure> compileModule(std::string_view source, const Surroundings* around = nullptr);
    // A procedure that returns the value of the expression.
    std::shared_ptr<const Procedure> compileExpression(std::string_view source, const Surroundings* around = nullptr);

  private:
    struct Work;
    void declare(Work& work);
    void declareClass(Work& work, const ClassNode& node);
    void addMethod(Work& work, ScriptClass& owner, const ProcedureNode& node);
    void findNames(Work& work, const Surroundings* around);
    void findNamesOf(Work& work, ProcedureScope& scope, const Block& body);
    std::shared_ptr<Procedure> generate(Work& work, ProcedureScope& scope);
    void finishMethod(ScriptClass& owner, const ProcedureNode& node, std::shared_ptr<const Procedure> procedure);

    SymbolTable& symbols_;
    Names& names_;
    Context& context_;
};

}  // namespace tolvan::script
