// Visits every statement and expression of a tree in the order of the text.
#pragma once

#include "platform/script/syntax/Ast.h"

namespace tolvan::script {

class AstVisitor {
  public:
    AstVisitor() = default;
    AstVisitor(const AstVisitor&) = delete;
    AstVisitor& operator=(const AstVisitor&) = delete;
    virtual ~AstVisitor() = default;

    void visit(const Block& block);
    void visit(const Expr* expression);  // null: nothing

  protected:
    virtual void onName(const Expr&) {}
    // Before the callee and the arguments are visited.
    virtual void onCall(const Expr&) {}
    // A target of an assignment, a loop variable, an array of ReDim or Erase; before it is visited.
    virtual void onAssigned(const Expr&) {}
    virtual void onReDim(const Expr&) {}
    virtual void onDim(const DimStmt&) {}
    virtual void onConst(const ConstStmt&) {}
    virtual void onError(const OnErrorStmt&) {}

  private:
    void visitStatement(const Stmt& statement);
    void visitReDim(const ReDimStmt& statement);
    void visitFor(const ForStmt& statement);
};

}  // namespace tolvan::script
