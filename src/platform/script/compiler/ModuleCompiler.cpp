#include "platform/script/compiler/ModuleCompiler.h"

#include "platform/script/compiler/ProcedureCompiler.h"
#include "platform/script/syntax/AstVisitor.h"
#include "platform/script/syntax/Parser.h"
#include "platform/script/syntax/SyntaxError.h"

#include <algorithm>
#include <deque>
#include <set>
#include <unordered_set>

namespace tolvan::script {

struct ModuleCompiler::Work {
    Work(SymbolTable& symbols, Names& names, const EnclosingScope* enclosingScope)
        : enclosing(enclosingScope),
          scope(symbols, names, enclosingScope != nullptr ? enclosingScope->symbols : nullptr) {
        if (enclosingScope != nullptr) outside.findOuter = enclosingScope->findVariable;
    }

    // Whether Execute runs the statements within a procedure.
    bool isWithinProcedure() const { return enclosing != nullptr && enclosing->makeVariable != nullptr; }

    const EnclosingScope* enclosing;  // null: the module stands by itself
    std::unique_ptr<Module> module;
    ModuleScope scope;
    ProcedureScope outside;
    std::deque<ProcedureScope> procedures;
    std::unordered_map<NameId, const ProcedureNode*> lastProcedure;  // of several with one name the last counts
    std::vector<std::pair<ProcedureScope*, std::shared_ptr<Procedure>>> compiled;
    std::shared_ptr<LoadedModule> loaded;  // null for what needs never be compiled again
};

namespace {

// Declarations in the statements outside procedures, in blocks too.
class OutsideDeclarations : public AstVisitor {
  public:
    // `declare` makes a variable of the name.
    OutsideDeclarations(ModuleScope& scope, const std::vector<Value>& literals, std::function<void(NameId)> declare)
        : scope_(scope), literals_(literals), declare_(std::move(declare)) {}

  protected:
    void onDim(const DimStmt& statement) override {
        for (const Variable& variable : statement.variables) {
            refuseSecond(variable.name, statement.line);
            declare_(variable.name);
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
        if (!declared_.insert(name).second) throw SyntaxError{Syntax::NameRedefined, line, 0};
    }

    ModuleScope& scope_;
    const std::vector<Value>& literals_;
    std::function<void(NameId)> declare_;
    std::unordered_set<NameId> declared_;
};

std::vector<std::uint32_t> extentsOf(const Variable& variable, const std::vector<Value>& literals) {
    std::vector<std::uint32_t> extents;
    for (const Expr* bound : variable.bounds)
        extents.push_back(static_cast<std::uint32_t>(literals[bound->literal].as.i) + 1);
    return extents;
}

// Whether one of the names is used anywhere.
class NameSearch : public AstVisitor {
  public:
    explicit NameSearch(std::initializer_list<NameId> names) : names_(names) {}

    void visitAll(const Module& module) {
        visit(module.body);
        for (const ProcedureNode* procedure : module.procedures) visit(procedure->body);
        for (const ClassNode& one : module.classes)
            for (const ProcedureNode* method : one.members) visit(method->body);
    }
    bool found = false;

  protected:
    void onName(const Expr& name) override {
        found |= std::find(names_.begin(), names_.end(), name.name) != names_.end();
    }

  private:
    std::vector<NameId> names_;
};

// A quick first test: the word stands somewhere in the source, if only in a comment.
bool mayExecute(std::string_view source) {
    constexpr std::string_view executeWord = "execute";
    const auto sameLetter = [](char letter, char small) { return (letter | 0x20) == small; };
    return std::search(source.begin(), source.end(), executeWord.begin(), executeWord.end(), sameLetter) !=
           source.end();
}

}  // namespace

std::shared_ptr<const Procedure> ModuleCompiler::compileModule(std::string_view source) {
    Work work(symbols_, names_, nullptr);
    work.loaded = std::make_shared<LoadedModule>();
    auto outside = compile(work, source);
    outside->isModule = true;
    return outside;
}

std::shared_ptr<const Procedure> ModuleCompiler::compileSource(std::string_view source,
                                                               const EnclosingScope& enclosing) {
    Work work(symbols_, names_, &enclosing);
    if (!work.isWithinProcedure()) work.loaded = std::make_shared<LoadedModule>();
    auto outside = compile(work, source);
    outside->isEvalCode = true;
    return outside;
}

// A module that cannot be compiled leaves no trace: its names become known only when all of it is compiled.
std::shared_ptr<Procedure> ModuleCompiler::compile(Work& work, std::string_view source) {
    read(work, source);
    declare(work);
    findNames(work);
    compileProcedures(work);
    auto outside = std::make_shared<Procedure>();
    ProcedureCompiler(work.scope, work.outside, work.module->literals, context_, *outside)
        .compileBody(work.module->body, work.module->lastLine);
    outside->countIn(context_.heap());
    const bool staysLoaded = !work.compiled.empty() && work.loaded != nullptr;
    if (staysLoaded) work.loaded->keepSource(source, context_.heap());

    std::vector<NameId> changed = work.scope.commit();
    for (auto& [scope, procedure] : work.compiled) {
        const auto& known = scope->slot != nullptr ? scope->slot->procedure : nullptr;
        if (known != nullptr && known->byReference != procedure->byReference) changed.push_back(procedure->name);
        finishProcedure(work, *scope, procedure);
    }
    if (!work.isWithinProcedure()) recompileUsers(changed);
    if (staysLoaded) {
        symbols_.addModule(work.loaded);
        symbols_.addUses(work.loaded, work.scope.uses());
    }
    return outside;
}

void ModuleCompiler::read(Work& work, std::string_view source) {
    work.module = Parser(source, names_, &context_.heap()).parseModule();
    if (mayExecute(source)) leaveNamesOpen(*work.module);
    work.scope.isLate = symbols_.isLate;
    work.scope.optionExplicit = work.module->optionExplicit;
    work.scope.hasClasses = !work.module->classes.empty();
}

// If the module runs source with Execute, any name can be declared at any time from now on: late binding for all.
void ModuleCompiler::leaveNamesOpen(const Module& module) {
    if (symbols_.isLate) return;
    NameSearch search({names_.intern("Execute"), names_.intern("ExecuteGlobal")});
    search.visitAll(module);
    if (!search.found) return;
    symbols_.isLate = true;
    for (const auto& loaded : symbols_.modules()) recompile(loaded);
}

void ModuleCompiler::recompileUsers(const std::vector<NameId>& changed) {
    std::set<std::shared_ptr<LoadedModule>> users;
    for (const NameId name : changed)
        for (auto& user : symbols_.usersOf(name)) users.insert(std::move(user));
    for (const auto& user : users) recompile(user);
}

// What the module declares is there already; its statements outside procedures have run.
void ModuleCompiler::recompile(const std::shared_ptr<LoadedModule>& module) {
    Work work(symbols_, names_, nullptr);
    work.loaded = module;
    read(work, module->source);
    for (const ProcedureNode* node : work.module->procedures) {
        const Symbol* symbol = symbols_.find(node->name);
        const bool isCurrent =
            symbol != nullptr && symbol->kind == Symbol::Kind::Procedure && symbol->procedure->module == module;
        if (isCurrent) work.lastProcedure[node->name] = node;
    }
    for (const ClassNode& node : work.module->classes)
        for (const ProcedureNode* method : node.members) {
            ProcedureScope& scope = work.procedures.emplace_back();
            scope.node = method;
            scope.owner = module->classes.at(node.name);
        }
    try {
        findNames(work);
        compileProcedures(work);
    } catch (const SyntaxError&) {
        return;  // with other meanings it has become too big for the machine: it stays as it is
    } catch (const ScriptError&) {
        return;  // or for the memory
    }
    symbols_.addUses(module, work.scope.uses());
    for (auto& [scope, procedure] : work.compiled) finishProcedure(work, *scope, procedure);
}

std::shared_ptr<const Procedure> ModuleCompiler::compileExpression(std::string_view source,
                                                                   const EnclosingScope& enclosing) {
    Work work(symbols_, names_, &enclosing);
    work.scope.isLate = symbols_.isLate;
    Expr* expression = nullptr;
    work.module = Parser(source, names_, &context_.heap()).parseSingleExpression(expression);
    // As a statement that uses the expression, so that the search for names finds those of the expression.
    CallStmt use{{StmtKind::Call, expression->line}, expression};
    work.module->body.append(&use);
    findNames(work);
    auto procedure = std::make_shared<Procedure>();
    procedure->kind = ProcedureKind::Function;
    procedure->isEvalCode = true;
    ProcedureCompiler(work.scope, work.outside, work.module->literals, context_, *procedure)
        .compileExpression(*expression);
    procedure->countIn(context_.heap());
    recompileUsers(work.scope.commit());
    return procedure;
}

void ModuleCompiler::declare(Work& work) {
    const auto declareVariable = [&work](NameId name) {
        if (!work.isWithinProcedure())
            work.scope.defineVariable(name);
        else if (work.outside.outerVariable(name) == nullptr)
            work.outside.enclosing[name] = work.enclosing->makeVariable(name);
    };
    OutsideDeclarations(work.scope, work.module->literals, declareVariable).visit(work.module->body);
    for (const ProcedureNode* node : work.module->procedures) {
        const Symbol* earlier = work.scope.findPending(node->name);
        if (earlier != nullptr && earlier->kind != Symbol::Kind::Procedure)
            throw SyntaxError{Syntax::NameRedefined, node->line, 0};
        work.lastProcedure[node->name] = node;
        if (earlier != nullptr) continue;
        const Symbol* known = work.scope.findEarlier(node->name);
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
    if (work.loaded != nullptr) work.loaded->classes[node.name] = made;
    for (const FieldNode& field : node.fields) {
        ScriptClass::Member member;
        member.field = static_cast<int>(made->fieldCount());
        member.isPrivate = field.isPrivate;
        member.isPrivateLet = field.isPrivate;
        if (!made->members.emplace(field.variable.name, member).second)
            throw SyntaxError{Syntax::NameRedefined, field.line, 0};
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
        if (owner.defaultMember != defaultMemberName) refuse(Syntax::SecondDefault);
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

void ModuleCompiler::findNames(Work& work) {
    if (work.enclosing != nullptr) {
        work.outside.enclosingResult = work.enclosing->result;
        work.outside.owner = work.enclosing->owner;
    }
    findVariables(work.outside, work.module->body, work.scope, work.module->literals, [&](NameId name) {
        if (work.scope.optionExplicit) return false;
        if (work.isWithinProcedure())
            work.outside.enclosing[name] = work.enclosing->makeVariable(name);
        else
            work.scope.defineVariable(name, true);
        return false;
    });
    for (const ProcedureNode* node : work.module->procedures) {
        const auto last = work.lastProcedure.find(node->name);
        if (last == work.lastProcedure.end() || last->second != node) continue;
        ProcedureScope& scope = work.procedures.emplace_back();
        scope.node = node;
        scope.slot = work.scope.find(node->name)->procedure;
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

void ModuleCompiler::compileProcedures(Work& work) {
    for (ProcedureScope& scope : work.procedures) work.compiled.emplace_back(&scope, generate(work, scope));
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
    procedure->countIn(context_.heap());
    return procedure;
}

// The old procedure may be running: it is kept until nothing runs.
void ModuleCompiler::replace(std::shared_ptr<const Procedure>& place, std::shared_ptr<const Procedure> procedure) {
    if (place != nullptr) symbols_.retire(std::move(place));
    place = std::move(procedure);
}

void ModuleCompiler::finishProcedure(Work& work, ProcedureScope& scope, std::shared_ptr<Procedure> procedure) {
    if (scope.owner != nullptr) {
        scope.owner->module = work.loaded;
        return finishMethod(*scope.owner, *scope.node, std::move(procedure));
    }
    scope.slot->module = work.loaded;
    procedure->checksArguments = scope.slot->procedure != nullptr;
    replace(scope.slot->procedure, std::move(procedure));
}

void ModuleCompiler::finishMethod(ScriptClass& owner, const ProcedureNode& node,
                                  std::shared_ptr<const Procedure> procedure) {
    const std::string name = lowerCase(names_.spelling(node.name));
    if (node.kind == ProcedureKind::Sub && name == "class_initialize") replace(owner.initialize, procedure);
    if (node.kind == ProcedureKind::Sub && name == "class_terminate") replace(owner.terminate, procedure);
    ScriptClass::Member& member = owner.members[node.name];
    switch (node.kind) {
        case ProcedureKind::PropertyLet:
            replace(member.let, std::move(procedure));
            break;
        case ProcedureKind::PropertySet:
            replace(member.set, std::move(procedure));
            break;
        default:
            replace(member.call, std::move(procedure));
            break;
    }
}

}  // namespace tolvan::script
