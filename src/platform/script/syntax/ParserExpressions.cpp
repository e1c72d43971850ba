#include "platform/script/OperatorList.h"
#include "platform/script/syntax/Parser.h"

#include <algorithm>

namespace tolvan::script {

namespace {

Precedence precedence(Token token) {
    switch (token) {
#define X(name, token, level, ...) \
    case Token::token:             \
        return Precedence::level;
        TOLVAN_BINARY_OPERATIONS(X)
        TOLVAN_LOGICAL_OPERATIONS(X)
#undef X
#define X(name, level, ...) \
    case Token::name:       \
        return Precedence::level;
        TOLVAN_COMPARISONS(X)
#undef X
        case Token::Is:
            return Precedence::Comparison;
        default:
            return Precedence::None;
    }
}

Precedence tighter(Precedence level) {
    return static_cast<Precedence>(static_cast<int>(level) + 1);
}

std::uint16_t depthOf(const Expr* node) {
    return node == nullptr ? std::uint16_t{0} : node->depth;
}

}  // namespace

Expr* Parser::make(ExprKind kind) {
    Expr* made = module_->arena.make<Expr>(kind);
    made->line = line();
    made->columns = {start().column, start().column + static_cast<std::uint32_t>(lexer_.spelling().size())};
    return made;
}

void Parser::finish(Expr* node) const {
    const Lexer::State& state = lexer_.state();
    node->columns.end = state.endLine == node->line ? state.endColumn : 0;
}

Expr* Parser::node(ExprKind kind, Token op, Expr* left, Expr* right, Start at) {
    Expr* made = make(kind);
    made->op = op;
    made->left = left;
    made->right = right;
    made->line = at.line;
    made->columns.start = at.column;
    finish(made);
    made->depth = static_cast<std::uint16_t>(1 + std::max(depthOf(left), depthOf(right)));
    refuseTooDeep(made);
    return made;
}

void Parser::refuseTooDeep(Expr* tree) const {
    if (tree->depth > deepestTree) lexer_.fail(Syntax::TooBig);
}

// Operators of one level group from the left, ^ too.
Expr* Parser::binary(Precedence lowestLevel) {
    Expr* left = unary();
    for (;;) {
        const Token op = token();
        const Precedence level = precedence(op);
        if (level == Precedence::None || level < lowestLevel) return left;
        lexer_.advance();
        Expr* right = binary(tighter(level));
        left = node(ExprKind::Binary, op, left, right, startOf(left));
    }
}

Expr* Parser::unary() {
    const Token op = token();
    if (op != Token::Not && op != Token::Minus && op != Token::Plus) return operand();
    const Level level(*this);
    const Start at = start();
    lexer_.advance();
    Expr* of = binary(op == Token::Not ? Precedence::Comparison : Precedence::Power);
    return node(ExprKind::Unary, op, of, nullptr, at);
}

Expr* Parser::operand() {
    return postfixes(primary());
}

Expr* Parser::primary() {
    Expr* made = nullptr;
    switch (token()) {
        case Token::Literal:
            made = make(ExprKind::Literal);
            made->literal = lexer_.state().literal;
            break;
        case Token::True:
        case Token::False:
        case Token::Empty:
        case Token::Null:
        case Token::Nothing:
            return constantValue();
        case Token::Name:
            made = make(ExprKind::Name);
            made->name = lexer_.state().name;
            break;
        case Token::Me:
            if (!inClass_) lexer_.fail(Syntax::InvalidMe);
            made = make(ExprKind::Me);
            break;
        case Token::Dot:
            if (withDepth_ == 0) lexer_.fail(Syntax::OutsideWith);
            return member(make(ExprKind::WithTarget));
        case Token::New:
            lexer_.advance();
            made = make(ExprKind::New);
            made->name = expectName();
            finish(made);
            return made;
        case Token::Open: {
            const Level level(*this);
            const Start at = start();
            lexer_.advance();
            Expr* inside = expression();
            expect(Token::Close, Syntax::ExpectedClose);
            return node(ExprKind::Group, Token::EndOfFile, inside, nullptr, at);
        }
        default:
            lexer_.fail(Syntax::ExpectedExpression);
    }
    lexer_.advance();
    return made;
}

// The words that stand for a value.
Expr* Parser::constantValue() {
    Expr* made = make(ExprKind::Literal);
    made->literal = static_cast<std::uint32_t>(module_->literals.size());
    switch (token()) {
        case Token::True:
            module_->literals.push_back(Value::boolean(true));
            break;
        case Token::False:
            module_->literals.push_back(Value::boolean(false));
            break;
        case Token::Null:
            module_->literals.push_back(Value::null());
            break;
        case Token::Nothing:
            module_->literals.push_back(Value::nothing());
            break;
        default:
            module_->literals.emplace_back();
            break;
    }
    lexer_.advance();
    return made;
}

Expr* Parser::postfixes(Expr* start) {
    Expr* chain = start;
    for (;;) {
        if (token() == Token::Dot)
            chain = member(chain);
        else if (token() == Token::Open && chain->kind != ExprKind::Literal)
            chain = call(chain);
        else
            return chain;
    }
}

// At the dot.
Expr* Parser::member(Expr* object) {
    lexer_.advance();
    Expr* made = node(ExprKind::Member, Token::Dot, object, nullptr, startOf(object));
    made->name = expectName();
    finish(made);
    return made;
}

// At the opening parenthesis.
Expr* Parser::call(Expr* callee) {
    const Level level(*this);
    lexer_.advance();
    Expr* made = node(ExprKind::Call, Token::Open, callee, nullptr, startOf(callee));
    made->arguments = argumentsUpTo(Token::Close);
    for (const Expr* argument : made->arguments)
        made->depth = std::max(made->depth, static_cast<std::uint16_t>(argument->depth + 1));
    refuseTooDeep(made);
    expect(Token::Close, Syntax::ExpectedClose);
    finish(made);
    return made;
}

// A list with commas, in which arguments may be left out; ends before `end`, or at the end of the statement where
// `end` is EndOfLine.
std::span<Expr*> Parser::argumentsUpTo(Token end) {
    std::vector<Expr*> list;
    const auto atListEnd = [this, end] { return end == Token::Close ? token() == Token::Close : atStatementEnd(); };
    if (atListEnd()) return {};
    for (;;) {
        list.push_back(token() == Token::Comma || atListEnd() ? make(ExprKind::Missing) : expression());
        if (!accept(Token::Comma)) break;
    }
    return module_->arena.copy(list);
}

}  // namespace tolvan::script
