// Makes the syntax tree of a module, statement by statement. Throws SyntaxError.
#pragma once

#include "platform/script/OperatorList.h"
#include "platform/script/syntax/Ast.h"
#include "platform/script/syntax/Lexer.h"

#include <cstddef>
#include <memory>
#include <string_view>

namespace tolvan::script {

class Parser {
  public:
    // The tree and its literals count against the limit of `heap`, if there is one; error 7 where it is passed.
    Parser(std::string_view source, Names& names, Heap* heap = nullptr);

    std::unique_ptr<Module> parseModule();
    // The source of Eval: one expression and nothing else.
    std::unique_ptr<Module> parseSingleExpression(Expr*& expression);

    // Levels of parentheses and blocks within each other, and of operators on one another; deeper text is refused
    // with TooBig. The machine's stack has room for what fits.
    static constexpr int deepestNesting = 200;
    static constexpr std::uint16_t deepestTree = 1000;
    static constexpr std::size_t mostParameters = 255;

  private:
    class Level;

    // Tokens.
    Token token() const { return lexer_.state().token; }
    std::uint32_t line() const { return lexer_.state().tokenLine; }
    bool accept(Token wanted);
    void expect(Token wanted, Syntax otherwise);
    bool isName(std::string_view word) const;
    bool acceptName(std::string_view word);
    NameId expectName();
    Token following();
    bool atStatementEnd() const;
    void expectStatementEnd();
    void skipSeparators();

    // Expressions (ParserExpressions.cpp).
    Expr* expression() { return binary(Precedence::Imp); }
    Expr* binary(Precedence lowestLevel);
    Expr* unary();
    Expr* operand();
    Expr* primary();
    Expr* postfixes(Expr* start);
    Expr* member(Expr* object);
    Expr* call(Expr* callee);
    std::span<Expr*> argumentsUpTo(Token end);
    void refuseTooDeep(Expr* node) const;
    Expr* make(ExprKind kind);
    // Where a node begins.
    struct Start {
        std::uint32_t line;
        std::uint32_t column;
    };
    Start start() const { return {line(), lexer_.state().tokenColumn}; }
    static Start startOf(const Expr* node) { return {node->line, node->columns.start}; }
    Expr* node(ExprKind kind, Token op, Expr* left, Expr* right, Start at);
    // The token before is its last one.
    void finish(Expr* node) const;
    Expr* constantValue();

    // Statements (ParserStatements.cpp).
    void statement(Block& block);
    bool startsStatement() const;
    void block(Block& into);
    void nestedBlock(Block& into, int& depth);
    void simpleStatement(Block& block);
    void assignmentOrCall(Block& block);
    Expr* callTarget(bool& hasArguments);
    void callStatement(Block& block);
    void assignment(Block& block, bool isSet);
    void finishAssignment(Block& block, Expr* target, bool isSet, std::uint32_t line);
    void dim(Block& block);
    void moduleVisibility(Block& block);
    std::span<Variable> variables();
    Variable variable();
    void reDim(Block& block);
    void erase(Block& block);
    void constants(Block& block, bool isPrivate);
    void ifStatement(Block& block);
    void singleLineIf(IfStmt::Branch first, std::vector<IfStmt::Branch>& branches);
    void statementsOnLine(Block& into);
    void blockIf(IfStmt::Branch first, std::vector<IfStmt::Branch>& branches);
    void select(Block& block);
    SelectStmt::Case caseClause();
    void forStatement(Block& block);
    void forEach(Block& block, std::uint32_t line);
    void whileStatement(Block& block);
    void doStatement(Block& block);
    void with(Block& block);
    void exit(Block& block);
    void onError(Block& block);
    bool declaration();
    void expectEnd(Token what, Syntax otherwise);
    template <class Statement>
    Statement* add(Block& block, Statement statement);

    // Procedures and classes (ParserDeclarations.cpp).
    void optionExplicit();
    ProcedureNode* procedure(bool isPrivate, bool isDefault, bool inClass);
    ProcedureNode* property(bool isPrivate, bool isDefault);
    NameId memberName();
    bool namesField();
    void parameters(ProcedureNode& procedure);
    void procedureBody(ProcedureNode& procedure);
    void classDeclaration();
    void classMember(ClassNode& into);
    void fields(ClassNode& into, bool isPrivate);

    std::unique_ptr<Module> module_;
    Names& names_;
    Lexer lexer_;
    int depth_ = 0;
    bool inLineIf_ = false;  // an If on one line, which can hold no block of lines
    int withDepth_ = 0;
    int doDepth_ = 0;
    int forDepth_ = 0;
    bool inClass_ = false;
    const ProcedureNode* procedure_ = nullptr;
};

// Counts one level of nesting for as long as it lives.
class Parser::Level {
  public:
    explicit Level(Parser& parser) : parser_(parser) {
        if (++parser_.depth_ > deepestNesting) {
            --parser_.depth_;
            parser_.lexer_.fail(Syntax::TooBig);
        }
    }
    Level(const Level&) = delete;
    Level& operator=(const Level&) = delete;
    ~Level() { --parser_.depth_; }

  private:
    Parser& parser_;
};

template <class Statement>
Statement* Parser::add(Block& block, Statement statement) {
    Statement* placed = module_->arena.make<Statement>(statement);
    block.append(placed);
    return placed;
}

}  // namespace tolvan::script
