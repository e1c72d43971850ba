#include "platform/script/compiler/Scope.h"

#include "platform/script/syntax/AstVisitor.h"
#include "platform/script/syntax/SyntaxError.h"

namespace tolvan::script {

const Symbol* ModuleScope::find(NameId name) {
    const auto place = pending_.find(name);
    const Symbol* symbol = place != pending_.end() ? &place->second : findOutside(name);
    const bool staysOpen = isLate && (symbol == nullptr || symbol->isImplicit);
    if (!staysOpen && engine_.isFirstUse(name, user_)) uses_.push_back(name);
    return symbol;
}

const Symbol* ModuleScope::findOutside(NameId name) {
    if (locals_ != nullptr) {
        const auto place = locals_->find(name);
        if (place != locals_->end()) return &place->second;
    }
    return engine_.find(name);
}

const Symbol* ModuleScope::findEarlier(NameId name) {
    if (locals_ == nullptr) return engine_.find(name);
    const auto place = locals_->find(name);
    return place == locals_->end() ? nullptr : &place->second;
}

Symbol* ModuleScope::findPending(NameId name) {
    const auto place = pending_.find(name);
    return place == pending_.end() ? nullptr : &place->second;
}

// A variable that is known already keeps its place in memory: compiled code of other modules has its address.
void ModuleScope::defineVariable(NameId name, bool isImplicit) {
    const Symbol* known = findEarlier(name);
    Symbol symbol;
    symbol.kind = Symbol::Kind::Variable;
    symbol.isImplicit = isImplicit;
    symbol.variable =
        known != nullptr && known->kind == Symbol::Kind::Variable ? known->variable : engine_.makeVariable();
    define(name, std::move(symbol));
}

std::vector<NameId> ModuleScope::commit() {
    std::vector<NameId> changed;
    for (auto& [name, symbol] : pending_) {
        const Symbol* earlier = findEarlier(name);
        const bool isSame = earlier != nullptr && earlier->kind == symbol.kind &&
                            earlier->variable == symbol.variable && earlier->procedure == symbol.procedure &&
                            earlier->scriptClass == symbol.scriptClass && symbol.kind != Symbol::Kind::Constant;
        if (!isSame) changed.push_back(name);
        if (locals_ != nullptr)
            (*locals_)[name] = std::move(symbol);
        else
            engine_.define(name, std::move(symbol));
    }
    pending_.clear();
    return changed;
}

const std::vector<bool>* ModuleScope::modesOf(const ProcedureSlot* slot) const {
    const auto place = modes_.find(slot);
    if (place != modes_.end()) return place->second;
    return slot->procedure == nullptr ? nullptr : &slot->procedure->byReference;
}

Value* ProcedureScope::outerVariable(NameId name) const {
    const auto known = enclosing.find(name);
    if (known != enclosing.end()) return known->second;
    Value* found = findOuter ? findOuter(name) : nullptr;
    if (found != nullptr) enclosing[name] = found;
    return found;
}

const Expr* rootName(const Expr& expression) {
    const Expr* root = &expression;
    while (root->kind == ExprKind::Call) root = root->left;
    return root->kind == ExprKind::Name ? root : nullptr;
}

Value constantOf(const Expr& expression, const std::vector<Value>& literals) {
    if (expression.kind == ExprKind::Literal) return literals[expression.literal];
    if (expression.kind == ExprKind::Group) return constantOf(*expression.left, literals);
    Value inside = constantOf(*expression.left, literals);
    if (expression.op != Token::Minus) return inside;
    if (inside.isOneOf(bits(Type::Integer, Type::Long)) && inside.as.i != INT32_MIN) {
        inside.as.i = -inside.as.i;
        if (inside.as.i > 0x7fff) inside.tag = bits(Type::Long);
    } else if (inside.isOneOf(bits(Type::Double, Type::Date))) {
        inside.as.d = -inside.as.d;
    } else {
        throw SyntaxError{Syntax::ExpectedLiteral, expression.line, 0};
    }
    return inside;
}

namespace {

// First pass: what Dim and Const declare, wherever in the procedure they stand.
class Declarations : public AstVisitor {
  public:
    Declarations(ProcedureScope& scope, const std::vector<Value>& literals) : scope_(scope), literals_(literals) {}

  protected:
    void onDim(const DimStmt& statement) override {
        for (const Variable& variable : statement.variables) {
            refuseSecond(variable.name, statement.line);
            scope_.addVariable(variable.name);
        }
    }
    void onConst(const ConstStmt& statement) override {
        refuseSecond(statement.name, statement.line);
        scope_.constants[statement.name] = constantOf(*statement.value, literals_);
    }

  private:
    void refuseSecond(NameId name, std::uint32_t line) const {
        if (scope_.knows(name)) throw SyntaxError{Syntax::NameRedefined, line, 0};
    }

    ProcedureScope& scope_;
    const std::vector<Value>& literals_;
};

// ReDim declares what nothing else declares. Only Option Explicit makes that a difference.
class ReDimDeclarations : public AstVisitor {
  public:
    ReDimDeclarations(ProcedureScope& scope, ModuleScope& module) : scope_(scope), module_(module) {}

  protected:
    void onReDim(const Expr& array) override {
        if (array.kind != ExprKind::Name || scope_.knows(array.name)) return;
        if (scope_.owner != nullptr && scope_.owner->find(array.name) != nullptr) return;
        if (module_.find(array.name) != nullptr) return;
        if (scope_.node != nullptr)
            scope_.addVariable(array.name);
        else
            module_.defineVariable(array.name);
    }

  private:
    ProcedureScope& scope_;
    ModuleScope& module_;
};

// Second pass: names that are used without a declaration, and whether there is an On Error Resume Next.
class Uses : public AstVisitor {
  public:
    Uses(ProcedureScope& scope, ModuleScope& module, const std::function<bool(NameId)>& becomesLocal)
        : scope_(scope), module_(module), becomesLocal_(becomesLocal) {}

  protected:
    void onName(const Expr& name) override {
        if (scope_.knows(name.name)) return;
        if (scope_.owner != nullptr && scope_.owner->find(name.name) != nullptr) return;
        const Symbol* symbol = module_.find(name.name);
        if (symbol != nullptr && !(module_.isLate && symbol->isImplicit)) {
            if (symbol->kind == Symbol::Kind::Special && symbol->special != Special::GetRef) scope_.runsSource = true;
            return;
        }
        const bool isLocal = symbol == nullptr && becomesLocal_(name.name);
        if ((isLocal || module_.isLate) && !scope_.knows(name.name)) scope_.addVariable(name.name);
    }
    void onError(const OnErrorStmt& statement) override {
        if (statement.resumeNext) scope_.handlesErrors = true;
    }

  private:
    ProcedureScope& scope_;
    ModuleScope& module_;
    const std::function<bool(NameId)>& becomesLocal_;
};

}  // namespace

void findVariables(ProcedureScope& scope, const Block& body, ModuleScope& module, const std::vector<Value>& literals,
                   const std::function<bool(NameId)>& becomesLocal) {
    if (scope.node != nullptr) {
        if (scope.hasResult()) {
            scope.variables[0] = scope.node->name;
            scope.registers[scope.node->name] = 0;
        }
        for (const Parameter& parameter : scope.node->parameters) {
            const auto reg = static_cast<std::uint32_t>(scope.variables.size());
            if (!scope.registers.emplace(parameter.name, reg).second)
                throw SyntaxError{Syntax::NameRedefined, scope.node->line, 0};
            scope.variables.push_back(parameter.name);
            scope.byReference.push_back(false);
        }
        Declarations(scope, literals).visit(body);
    }
    if (module.optionExplicit) ReDimDeclarations(scope, module).visit(body);
    if (module.isLate) scope.firstLate = static_cast<std::uint32_t>(scope.variables.size());
    Uses(scope, module, becomesLocal).visit(body);
}

}  // namespace tolvan::script
