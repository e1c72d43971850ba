#include "platform/script/syntax/AstVisitor.h"

namespace tolvan::script {

void AstVisitor::visit(const Block& block) {
    for (const Stmt* statement = block.first; statement != nullptr; statement = statement->next)
        visitStatement(*statement);
}

void AstVisitor::visit(const Expr* expression) {
    if (expression == nullptr) return;
    if (expression->kind == ExprKind::Name) onName(*expression);
    if (expression->kind == ExprKind::Call) onCall(*expression);
    visit(expression->left);
    visit(expression->right);
    for (const Expr* argument : expression->arguments) visit(argument);
}

void AstVisitor::visitReDim(const ReDimStmt& statement) {
    for (const ReDimStmt::Target& target : statement.targets) {
        onReDim(*target.array);
        onAssigned(*target.array);
        visit(target.array);
        for (const Expr* bound : target.bounds) visit(bound);
    }
}

void AstVisitor::visitFor(const ForStmt& statement) {
    onAssigned(*statement.variable);
    visit(statement.variable);
    visit(statement.from);
    visit(statement.to);
    visit(statement.step);
    visit(statement.body);
}

void AstVisitor::visitStatement(const Stmt& statement) {
    switch (statement.kind) {
        case StmtKind::Assign: {
            const auto& assign = static_cast<const AssignStmt&>(statement);
            onAssigned(*assign.target);
            visit(assign.target);
            return visit(assign.value);
        }
        case StmtKind::Call:
            return visit(static_cast<const CallStmt&>(statement).call);
        case StmtKind::Dim:
            return onDim(static_cast<const DimStmt&>(statement));
        case StmtKind::ReDim:
            return visitReDim(static_cast<const ReDimStmt&>(statement));
        case StmtKind::Erase: {
            const auto& erase = static_cast<const EraseStmt&>(statement);
            onAssigned(*erase.array);
            return visit(erase.array);
        }
        case StmtKind::Const:
            return onConst(static_cast<const ConstStmt&>(statement));
        case StmtKind::If:
            for (const IfStmt::Branch& branch : static_cast<const IfStmt&>(statement).branches) {
                visit(branch.condition);
                visit(branch.body);
            }
            return;
        case StmtKind::Select:
            visit(static_cast<const SelectStmt&>(statement).subject);
            for (const SelectStmt::Case& clause : static_cast<const SelectStmt&>(statement).cases) {
                for (const Expr* value : clause.values) visit(value);
                visit(clause.body);
            }
            return;
        case StmtKind::For:
            return visitFor(static_cast<const ForStmt&>(statement));
        case StmtKind::ForEach: {
            const auto& loop = static_cast<const ForEachStmt&>(statement);
            onAssigned(*loop.variable);
            visit(loop.variable);
            visit(loop.group);
            return visit(loop.body);
        }
        case StmtKind::Loop: {
            const auto& loop = static_cast<const LoopStmt&>(statement);
            visit(loop.condition);
            return visit(loop.body);
        }
        case StmtKind::With:
            visit(static_cast<const WithStmt&>(statement).object);
            return visit(static_cast<const WithStmt&>(statement).body);
        case StmtKind::OnError:
            return onError(static_cast<const OnErrorStmt&>(statement));
        case StmtKind::Exit:
        case StmtKind::Stop:
            return;
    }
}

}  // namespace tolvan::script
