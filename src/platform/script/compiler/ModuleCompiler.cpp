#include "platform/script/compiler/ModuleCompiler.h"

#include "platform/script/compiler/ProcedureCompiler.h"
#include "platform/script/syntax/AstVisitor.h"
#include "platform/script/syntax/Parser.h"
#include "platform/script/syntax/SyntaxError.h"

#include <deque>

namespace tolvan::script {

struct ModuleCompiler::Work {
    Work(SymbolTable& symbols, Names& names) : scope(symbols, names) {}

    std::unique_ptr<Module> module;
    ModuleScope scope;
    ProcedureScope outside;
    std::deque<ProcedureScope> procedures;
    std::unordered_map<NameId, const ProcedureNode*> lastProcedure;  // of several with one name the last counts
};

namespace {

// Declarations in the statements outside procedures, in blocks too.
class OutsideDeclarations : public AstVisitor {
  public:
    OutsideDeclarations(ModuleScope& scope, const std::vector<Value>& literals) : scope_(scope), literals_(literals) {}

  protected:
    void onDim(const DimStmt& statement) override {
        for (const Variable& variable : statement.variables) {
            refuseSecond(variable.name, statement.line);
            Symbol symbol;
            symbol.kind = Symbol::Kind::Variable;
            symbol.variable = scope_.engine().makeVariable();
            scope_.define(variable.name, symbol);
        }
    }
    void onConst(const ConstStmt& statement) override {
        refuseSecond(statement.name, statement.line);
        Symbol symbol;
        symbol.kind = Symbol::Kind::Constant;
        symbol.constant = constantOf(*statement.value, literals_);
        scope_.define(statement.name, symbol);
    }

  private:
    void refuseSecond(NameId name, std::uint32_t line) {
        if (scope_.findPending(name) != nullptr) throw SyntaxError{Syntax::NameRedefined, line, 0};
    }

    ModuleScope& scope_;
    const std::vector<Value>& literals_;
};

std::vector<std::uint32_t> extentsOf(const Variable& variable, const std::vector<Value>& literals) {
    std::vector<std::uint32_t> extents;
    for (const Expr* bound : variable.bounds)
        extents.push_back(static_cast<std::uint32_t>(literals[bound->literal].as.i) + 1);
    return extents;
}

}  // namespace

std::shared_ptr<const Procedure> ModuleCompiler::compileModule(std::string_view source, const Surroundings* around) {
    Work work(symbols_, names_);
    work.module = Parser(source, names_).parseModule();
    work.scope.optionExplicit = work.module->optionExplicit;
    work.scope.hasClasses = !work.module->classes.empty();
    declare(work);
    findNames(work, around);

    std::vector<std::pair<ProcedureScope*, std::shared_ptr<Procedure>>> compiled;
    for (ProcedureScope& scope : work.procedures) compiled.emplace_back(&scope, generate(work, scope));
    auto outside = std::make_shared<Procedure>();
    outside->isModule = around == nullptr;
    ProcedureCompiler(work.scope, work.outside, work.module->literals, context_, *outside)
        .compileBody(work.module->body, work.module->lastLine);

    work.scope.commit();
    for (auto& [scope, procedure] : compiled) {
        if (scope->owner != nullptr) {
            finishMethod(*scope->owner, *scope->node, procedure);
            continue;
        }
        if (scope->slot->procedure != nullptr) {
            procedure->checksArguments = true;
            symbols_.retire(scope->slot->procedure);
        }
        scope->slot->procedure = procedure;
    }
    return outside;
}

std::shared_ptr<const Procedure> ModuleCompiler::compileExpression(std::string_view source,
                                                                   const Surroundings* around) {
    Work work(symbols_, names_);
    Expr* expression = nullptr;
    work.module = Parser(source, names_).parseSingleExpression(expression);
    // One statement that uses it, so that its names are found.
    CallStmt use{{StmtKind::Call, expression->line}, expression};
    work.module->body.append(&use);
    findNames(work, around);
    auto procedure = std::make_shared<Procedure>();
    procedure->kind = ProcedureKind::Function;
    ProcedureCompiler(work.scope, work.outside, work.module->literals, context_, *procedure)
        .compileExpression(*expression);
    work.scope.commit();
    return procedure;
}

void ModuleCompiler::declare(Work& work) {
    OutsideDeclarations(work.scope, work.module->literals).visit(work.module->body);
    for (const ProcedureNode* node : work.module->procedures) {
        const Symbol* earlier = work.scope.findPending(node->name);
        if (earlier != nullptr && earlier->kind != Symbol::Kind::Procedure)
            throw SyntaxError{Syntax::NameRedefined, node->line, 0};
        work.lastProcedure[node->name] = node;
        if (earlier != nullptr) continue;
        const Symbol* known = symbols_.find(node->name);
        Symbol symbol;
        symbol.kind = Symbol::Kind::Procedure;
        symbol.procedure =
            known != nullptr && known->kind == Symbol::Kind::Procedure ? known->procedure : symbols_.makeSlot();
        work.scope.define(node->name, symbol);
    }
    for (const ClassNode& node : work.module->classes) declareClass(work, node);
}

void ModuleCompiler::declareClass(Work& work, const ClassNode& node) {
    if (work.scope.findPending(node.name) != nullptr) throw SyntaxError{Syntax::NameRedefined, node.line, 0};
    ScriptClass* made = symbols_.makeClass();
    made->name = node.name;
    made->spelling = names_.spelling(node.name);
    Symbol symbol;
    symbol.kind = Symbol::Kind::Class;
    symbol.scriptClass = made;
    work.scope.define(node.name, symbol);
    for (const FieldNode& field : node.fields) {
        ScriptClass::Member member;
        member.field = static_cast<int>(made->fieldCount());
        member.isPrivate = field.isPrivate;
        member.isPrivateLet = field.isPrivate;
        if (!made->members.emplace(field.variable.name, member).second)
            throw SyntaxError{Syntax::NameRedefined, node.line, 0};
        made->fieldIsArray.push_back(field.variable.isArray);
        made->fieldBounds.push_back(extentsOf(field.variable, work.module->literals));
    }
    for (const ProcedureNode* method : node.members) addMethod(work, *made, *method);
}

// Makes the member's name known, and checks it against the other parts of the same property.
void ModuleCompiler::addMethod(Work& work, ScriptClass& owner, const ProcedureNode& node) {
    ProcedureScope& scope = work.procedures.emplace_back();
    scope.node = &node;
    scope.owner = &owner;
    const auto refuse = [&node](Syntax number) { throw SyntaxError{number, node.line, 0}; };
    const auto [place, isNew] = owner.members.try_emplace(node.name);
    ScriptClass::Member& member = place->second;
    if (node.kind == ProcedureKind::PropertyLet || node.kind == ProcedureKind::PropertySet)
        member.isPrivateLet = node.isPrivate;
    else
        member.isPrivate = node.isPrivate;
    if (node.isDefault) {
        if (owner.defaultMember != DefaultMember) refuse(Syntax::SecondDefault);
        owner.defaultMember = node.name;
    }
    if (isNew) return;
    if (member.field >= 0) refuse(Syntax::NameRedefined);
    const auto isProperty = [](ProcedureKind kind) { return kind >= ProcedureKind::PropertyGet; };
    const auto ownCount = [](const ProcedureNode& of) {
        return of.parameters.size() - (of.kind == ProcedureKind::PropertyGet ? 0 : 1);
    };
    for (const ProcedureScope& other : work.procedures) {
        if (&other == &scope || other.owner != &owner || other.node->name != node.name) continue;
        if (!isProperty(node.kind) || !isProperty(other.node->kind) || other.node->kind == node.kind)
            refuse(Syntax::NameRedefined);
        if (ownCount(*other.node) != ownCount(node)) refuse(Syntax::ArgumentsDiffer);
    }
}

void ModuleCompiler::findNames(Work& work, const Surroundings* around) {
    if (around != nullptr) {
        work.outside.outer = around->variables;
        work.outside.owner = around->owner;
    }
    findVariables(work.outside, work.module->body, work.scope, work.module->literals, [&](NameId name) {
        if (work.scope.optionExplicit) return false;
        if (around != nullptr && around->makeVariable) {
            work.outside.outer[name] = around->makeVariable(name);
            return false;
        }
        Symbol symbol;
        symbol.kind = Symbol::Kind::Variable;
        symbol.variable = symbols_.makeVariable();
        work.scope.define(name, symbol);
        return false;
    });
    for (const ProcedureNode* node : work.module->procedures) {
        if (work.lastProcedure[node->name] != node) continue;
        ProcedureScope& scope = work.procedures.emplace_back();
        scope.node = node;
        scope.slot = work.scope.findPending(node->name)->procedure;
    }
    std::vector<ProcedureScope*> all{&work.outside};
    for (ProcedureScope& scope : work.procedures) {
        findNamesOf(work, scope, scope.node->body);
        all.push_back(&scope);
    }
    findReferences(all, work.module->body, work.scope);
    for (const ProcedureScope& scope : work.procedures)
        if (scope.slot != nullptr) work.scope.setModes(scope.slot, scope.byReference);
}

void ModuleCompiler::findNamesOf(Work& work, ProcedureScope& scope, const Block& body) {
    const bool isExplicit = work.scope.optionExplicit;
    findVariables(scope, body, work.scope, work.module->literals, [isExplicit](NameId) { return !isExplicit; });
}

std::shared_ptr<Procedure> ModuleCompiler::generate(Work& work, ProcedureScope& scope) {
    auto procedure = std::make_shared<Procedure>();
    const ProcedureNode& node = *scope.node;
    procedure->name = node.name;
    procedure->kind = node.kind;
    procedure->owner = scope.owner;
    procedure->parameterCount = static_cast<std::uint32_t>(node.parameters.size());
    procedure->byReference = scope.byReference;
    try {
        ProcedureCompiler(work.scope, scope, work.module->literals, context_, *procedure)
            .compileBody(node.body, node.endLine);
    } catch (SyntaxError& error) {
        if (error.line == 0) error.line = node.line;
        throw;
    }
    return procedure;
}

void ModuleCompiler::finishMethod(ScriptClass& owner, const ProcedureNode& node,
                                  std::shared_ptr<const Procedure> procedure) {
    const std::string name = lowerCase(names_.spelling(node.name));
    if (node.kind == ProcedureKind::Sub && name == "class_initialize") owner.initialize = procedure;
    if (node.kind == ProcedureKind::Sub && name == "class_terminate") owner.terminate = procedure;
    ScriptClass::Member& member = owner.members[node.name];
    switch (node.kind) {
        case ProcedureKind::PropertyLet:
            member.let = std::move(procedure);
            break;
        case ProcedureKind::PropertySet:
            member.set = std::move(procedure);
            break;
        default:
            member.call = std::move(procedure);
            break;
    }
}

}  // namespace tolvan::script
