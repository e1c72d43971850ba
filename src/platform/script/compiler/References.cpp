// Which parameters have to be references: see ProcedureScope.

#include "platform/script/compiler/Scope.h"
#include "platform/script/syntax/AstVisitor.h"

#include <algorithm>

namespace tolvan::script {

namespace {

struct ParameterPlace {
    ProcedureScope* procedure;
    std::size_t index;  // from 0
};

// An argument that is a variable from outside procedures, or a field.
struct SharedArgument {
    NameId name;
    ParameterPlace to;
};

class ReferenceFinder : public AstVisitor {
  public:
    ReferenceFinder(std::vector<ProcedureScope*>& procedures, ModuleScope& module) : module_(module) {
        anythingChanges_ = module.isLate;
        for (ProcedureScope* procedure : procedures)
            if (procedure->slot != nullptr) bySlot_[procedure->slot] = procedure;
    }

    void read(ProcedureScope& procedure, const Block& body) {
        current_ = &procedure;
        if (procedure.runsSource) {
            anythingChanges_ = true;
            for (std::size_t i = 0; i < procedure.byReference.size(); ++i) mark({&procedure, i});
        }
        if (procedure.owner != nullptr)
            for (std::size_t i = 0; i < procedure.byReference.size(); ++i) mark({&procedure, i});
        visit(body);
    }

    void solve() {
        for (const SharedArgument& argument : shared_)
            if (anythingChanges_ || isChanged(argument.name)) mark(argument.to);
        while (!marked_.empty()) {
            const ParameterPlace place = marked_.back();
            marked_.pop_back();
            for (const ParameterPlace& other : linksOf(place)) mark(other);
        }
    }

  protected:
    void onAssigned(const Expr& target) override {
        if (const Expr* root = rootName(target)) change(root->name);
    }

    void onCall(const Expr& call) override {
        ProcedureScope* callee = nullptr;
        const Procedure* earlier = nullptr;
        if (call.left->kind == ExprKind::Name) {
            const NameId name = call.left->name;
            const bool recursion = current_->hasResult() && name == current_->node->name;
            const bool isLate = current_->isLate(name);
            if (current_->knows(name) && !recursion && !isLate) return;
            const Symbol* symbol = isLate ? nullptr : module_.find(name);
            const bool runsNothing =
                symbol == nullptr || symbol->kind == Symbol::Kind::Builtin || symbol->kind == Symbol::Kind::Variable;
            if (runsNothing && !isLate) return;
            if (symbol != nullptr && symbol->kind == Symbol::Kind::Procedure && current_->owner == nullptr) {
                const auto place = bySlot_.find(symbol->procedure);
                if (place != bySlot_.end())
                    callee = place->second;
                else
                    earlier = symbol->procedure->procedure.get();
            }
        }
        for (std::size_t i = 0; i < call.arguments.size(); ++i)
            if (const Expr* root = rootName(*call.arguments[i])) passed(call, i, root->name, callee, earlier);
    }

  private:
    void passed(const Expr& call, std::size_t index, NameId name, ProcedureScope* callee, const Procedure* earlier) {
        if (callee == nullptr) {
            const bool keeps =
                earlier != nullptr && (index >= earlier->byReference.size() || !earlier->byReference[index]);
            if (!keeps) change(name);
            return;
        }
        if (index >= callee->byReference.size()) return;
        const ParameterPlace to{callee, index};
        const auto reg = current_->registers.find(name);
        if (reg == current_->registers.end()) {
            shared_.push_back({name, to});
        } else if (reg->second >= 1 && reg->second <= current_->byReference.size()) {
            link({current_, reg->second - 1}, to);
        }
        for (std::size_t i = 0; i < call.arguments.size(); ++i) {
            const Expr* other = rootName(*call.arguments[i]);
            if (i != index && other != nullptr && other->name == name) mark(to);
        }
    }

    // The statements outside procedures do not run while a procedure does, so their changes do not count.
    void change(NameId name) {
        if (current_->node == nullptr) return;
        const auto reg = current_->registers.find(name);
        if (reg == current_->registers.end())
            changed_.insert(name);
        else if (reg->second >= 1 && reg->second <= current_->byReference.size())
            mark({current_, reg->second - 1});
    }

    // A name that this module did not define may be changed by code that is not known here.
    bool isChanged(NameId name) { return changed_.count(name) != 0 || module_.findPending(name) == nullptr; }

    bool isMarked(const ParameterPlace& place) const { return place.procedure->byReference[place.index]; }
    void mark(const ParameterPlace& place) {
        if (place.procedure->node->parameters[place.index].byValue || isMarked(place)) return;
        place.procedure->byReference[place.index] = true;
        marked_.push_back(place);
    }
    // A parameter that is passed on to another procedure's parameter: if one is a reference, so is the other.
    void link(const ParameterPlace& from, const ParameterPlace& to) {
        linksOf(from).push_back(to);
        linksOf(to).push_back(from);
    }
    std::vector<ParameterPlace>& linksOf(const ParameterPlace& place) {
        auto& links = links_[place.procedure];
        if (links.size() <= place.index) links.resize(place.procedure->byReference.size());
        return links[place.index];
    }

    ModuleScope& module_;
    std::unordered_map<const ProcedureSlot*, ProcedureScope*> bySlot_;
    ProcedureScope* current_ = nullptr;
    bool anythingChanges_ = false;
    std::unordered_set<NameId> changed_;
    std::unordered_map<const ProcedureScope*, std::vector<std::vector<ParameterPlace>>> links_;
    std::vector<ParameterPlace> marked_;
    std::vector<SharedArgument> shared_;
};

}  // namespace

void findReferences(std::vector<ProcedureScope*>& procedures, const Block& outside, ModuleScope& module) {
    ReferenceFinder finder(procedures, module);
    for (ProcedureScope* procedure : procedures)
        finder.read(*procedure, procedure->node != nullptr ? procedure->node->body : outside);
    finder.solve();
}

}  // namespace tolvan::script
