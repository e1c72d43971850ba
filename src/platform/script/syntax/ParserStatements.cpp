#include "platform/script/syntax/Parser.h"

namespace tolvan::script {

bool Parser::startsStatement() const {
    switch (token()) {
        case Token::Name:
        case Token::Dot:
        case Token::Me:
        case Token::Call:
        case Token::Const:
        case Token::Dim:
        case Token::Do:
        case Token::Exit:
        case Token::For:
        case Token::If:
        case Token::Let:
        case Token::On:
        case Token::ReDim:
        case Token::Select:
        case Token::Set:
        case Token::Stop:
        case Token::While:
        case Token::With:
        case Token::Private:
        case Token::Public:
            return true;
        default:
            return false;
    }
}

// The statements within one more loop or With, after its first line.
void Parser::nestedBlock(Block& into, int& depth) {
    expectStatementEnd();
    ++depth;
    block(into);
    --depth;
}

// Statements up to a word that cannot start one, which the caller checks: it closes the enclosing block. Signs,
// literals and the closing words of loops that are not open are errors right here: they close no block.
void Parser::block(Block& into) {
    const Level level(*this);
    for (;;) {
        skipSeparators();
        if (declaration()) continue;
        if (startsStatement()) {
            statement(into);
            if (token() == Token::End && following() == Token::If) return;  // "x = 1 End If"
            expectStatementEnd();
            continue;
        }
        switch (token()) {
            case Token::Loop:
                if (doDepth_ == 0) lexer_.fail(Syntax::LoopWithoutDo);
                return;
            case Token::Next:
                if (forDepth_ == 0) lexer_.fail(Syntax::UnexpectedNext);
                return;
            default:
                if (token() != Token::EndOfFile && !isReserved(token())) lexer_.fail(Syntax::ExpectedStatement);
                return;
        }
    }
}

void Parser::statement(Block& into) {
    switch (token()) {
        case Token::If:
            return ifStatement(into);
        case Token::Select:
            return select(into);
        case Token::For:
            return forStatement(into);
        case Token::While:
            return whileStatement(into);
        case Token::Do:
            return doStatement(into);
        case Token::With:
            return with(into);
        default:
            return simpleStatement(into);
    }
}

void Parser::simpleStatement(Block& into) {
    switch (token()) {
        case Token::Dim:
            return dim(into);
        case Token::ReDim:
            return reDim(into);
        case Token::Const:
            return constants(into, false);
        case Token::Private:
        case Token::Public:
            return moduleVisibility(into);
        case Token::Call:
            return callStatement(into);
        case Token::Set:
            return assignment(into, true);
        case Token::Let:
            return assignment(into, false);
        case Token::Exit:
            return exit(into);
        case Token::On:
            return onError(into);
        case Token::Stop:
            add(into, Stmt{StmtKind::Stop, line()});
            return lexer_.advance();
        default:
            if (isName("erase")) return erase(into);
            return assignmentOrCall(into);
    }
}

// Assignments and calls -----------------------------------------------------------------------------------------------

// "f (a), b" gives an argument in parentheses; "f (a) = b" assigns an element; "f (a)" calls with a value. Only what
// follows the parentheses tells, so the list is read again where the first reading was wrong: after a blank, too, in
// "f (a)(1)", which gives an element. In a With, "f .a" gives a member of its object.
Expr* Parser::callTarget(bool& hasArguments) {
    Expr* chain = primary();
    hasArguments = false;
    Expr* calledOnElement = nullptr;
    Lexer::State beforeElement;
    for (;;) {
        if (token() == Token::Dot) {
            if (withDepth_ > 0 && lexer_.state().afterBlank) break;
            chain = member(chain);
            hasArguments = false;
        } else if (token() == Token::Open) {
            const Lexer::State before = lexer_.state();
            Expr* called = call(chain);
            const bool goesOn = token() == Token::Dot || token() == Token::Open || token() == Token::Equal;
            const bool isSingle = called->arguments.size() <= 1;
            if (!goesOn && !atStatementEnd() && isSingle) {
                if (calledOnElement != nullptr) break;
                lexer_.restore(before);
                return chain;
            }
            if (token() == Token::Open && isSingle && before.afterBlank && calledOnElement == nullptr) {
                calledOnElement = chain;
                beforeElement = before;
            }
            chain = called;
            hasArguments = true;
        } else {
            break;
        }
    }
    if (calledOnElement == nullptr || token() == Token::Equal) return chain;
    lexer_.restore(beforeElement);
    hasArguments = false;
    return calledOnElement;
}

void Parser::assignmentOrCall(Block& into) {
    const std::uint32_t atLine = line();
    bool inParentheses = false;
    Expr* target = callTarget(inParentheses);
    if (token() == Token::Equal) return finishAssignment(into, target, false, atLine);
    if (inParentheses) {
        if (target->arguments.size() > 1) lexer_.fail(Syntax::ParenthesesOnSub);
        if (target->arguments.size() == 1 && target->arguments[0]->kind != ExprKind::Missing)
            target->arguments[0] =
                node(ExprKind::Group, Token::EndOfFile, target->arguments[0], nullptr, startOf(target->arguments[0]));
        if (!atStatementEnd()) lexer_.fail(Syntax::ExpectedEndOfStatement);
    } else {
        Expr* called = node(ExprKind::Call, Token::Open, target, nullptr, startOf(target));
        called->arguments = argumentsUpTo(Token::EndOfLine);
        finish(called);
        target = called;
    }
    add(into, CallStmt{{StmtKind::Call, atLine}, target});
}

void Parser::callStatement(Block& into) {
    const std::uint32_t atLine = line();
    lexer_.advance();
    const bool isParenthesised = token() == Token::Open;
    if (!isParenthesised && token() != Token::Name && token() != Token::Dot && token() != Token::Me)
        lexer_.fail(Syntax::ExpectedIdentifier);
    Expr* target = operand();
    if (target->kind == ExprKind::Group) lexer_.fail(Syntax::ExpectedIdentifier);
    if (target->kind != ExprKind::Call) target = node(ExprKind::Call, Token::Open, target, nullptr, startOf(target));
    add(into, CallStmt{{StmtKind::Call, atLine}, target});
}

void Parser::assignment(Block& into, bool isSet) {
    const std::uint32_t atLine = line();
    lexer_.advance();
    if (token() != Token::Name && token() != Token::Dot && token() != Token::Me)
        lexer_.fail(Syntax::ExpectedIdentifier);
    finishAssignment(into, operand(), isSet, atLine);
}

void Parser::finishAssignment(Block& into, Expr* target, bool isSet, std::uint32_t atLine) {
    if (token() != Token::Equal) lexer_.fail(Syntax::ExpectedEqual);
    if (target->kind == ExprKind::Me) lexer_.fail(Syntax::InvalidMe);
    lexer_.advance();
    Expr* value = expression();
    add(into, AssignStmt{{StmtKind::Assign, atLine}, target, value, isSet});
}

// Declarations of variables -------------------------------------------------------------------------------------------

void Parser::dim(Block& into) {
    const std::uint32_t atLine = line();
    lexer_.advance();
    add(into, DimStmt{{StmtKind::Dim, atLine}, variables()});
}

// "Public x", "Private Const y = 1" outside classes; procedures with these words were taken by declaration().
void Parser::moduleVisibility(Block& into) {
    if (procedure_ != nullptr) lexer_.fail(Syntax::ExpectedStatement);
    const std::uint32_t atLine = line();
    const bool isPrivate = token() == Token::Private;
    lexer_.advance();
    if (token() == Token::Const) return constants(into, isPrivate);
    add(into, DimStmt{{StmtKind::Dim, atLine}, variables()});
}

std::span<Variable> Parser::variables() {
    std::vector<Variable> list;
    do {
        list.push_back(variable());
    } while (accept(Token::Comma));
    return module_->arena.copy(list);
}

Variable Parser::variable() {
    const Columns columns{start().column, start().column + static_cast<std::uint32_t>(lexer_.spelling().size())};
    Variable declared{.name = expectName(), .columns = columns};
    if (!accept(Token::Open)) return declared;
    declared.isArray = true;
    std::vector<Expr*> bounds;
    while (token() != Token::Close) {
        if (token() != Token::Literal) lexer_.fail(Syntax::ExpectedInteger);
        const Value& bound = module_->literals[lexer_.state().literal];
        if (!bound.isOneOf(bits(Type::Integer, Type::Long))) lexer_.fail(Syntax::ExpectedInteger);
        bounds.push_back(primary());
        if (!accept(Token::Comma)) break;
    }
    expect(Token::Close, Syntax::ExpectedClose);
    declared.bounds = module_->arena.copy(bounds);
    return declared;
}

void Parser::reDim(Block& into) {
    const std::uint32_t atLine = line();
    lexer_.advance();
    const bool preserve = isName("preserve") && following() != Token::Open;
    if (preserve) lexer_.advance();
    std::vector<ReDimStmt::Target> targets;
    do {
        if (token() != Token::Name && token() != Token::Dot && token() != Token::Me)
            lexer_.fail(Syntax::ExpectedIdentifier);
        Expr* array = operand();
        if (array->kind != ExprKind::Call || array->arguments.empty()) lexer_.fail(Syntax::ExpectedOpen);
        targets.push_back({array->left, array->arguments});
    } while (accept(Token::Comma));
    add(into, ReDimStmt{{StmtKind::ReDim, atLine}, module_->arena.copy(targets), preserve});
}

void Parser::erase(Block& into) {
    const Lexer::State before = lexer_.state();
    const std::uint32_t atLine = line();
    lexer_.advance();
    if (token() != Token::Name) {
        lexer_.restore(before);
        return assignmentOrCall(into);
    }
    do {
        add(into, EraseStmt{{StmtKind::Erase, atLine}, operand()});
    } while (accept(Token::Comma));
}

void Parser::constants(Block& into, bool isPrivate) {
    const std::uint32_t atLine = line();
    lexer_.advance();
    do {
        const NameId name = expectName();
        expect(Token::Equal, Syntax::ExpectedEqual);
        Expr* value = unary();
        const Expr* inside = value;
        while (inside->kind == ExprKind::Group || (inside->kind == ExprKind::Unary && inside->op != Token::Not))
            inside = inside->left;
        if (inside->kind != ExprKind::Literal) lexer_.fail(Syntax::ExpectedLiteral);
        add(into, ConstStmt{{StmtKind::Const, atLine}, name, value, isPrivate});
    } while (accept(Token::Comma));
}

// Branches ------------------------------------------------------------------------------------------------------------

void Parser::ifStatement(Block& into) {
    const std::uint32_t atLine = line();
    lexer_.advance();
    IfStmt::Branch first{expression(), {}, atLine};
    expect(Token::Then, Syntax::ExpectedThen);
    std::vector<IfStmt::Branch> branches;
    if (token() != Token::EndOfLine && token() != Token::EndOfFile) {
        singleLineIf(first, branches);
    } else {
        if (inLineIf_) lexer_.fail(Syntax::NotFirstOnLine);
        blockIf(first, branches);
    }
    add(into, IfStmt{{StmtKind::If, atLine}, module_->arena.copy(branches)});
}

void Parser::statementsOnLine(Block& into) {
    const Level level(*this);
    for (;;) {
        while (accept(Token::Colon)) {
        }
        if (token() == Token::EndOfLine || token() == Token::EndOfFile || token() == Token::Else ||
            token() == Token::End)
            return;
        if (!startsStatement()) lexer_.fail(Syntax::ExpectedStatement);
        statement(into);
        if (!atStatementEnd()) lexer_.fail(Syntax::ExpectedEndOfStatement);
        if (token() != Token::Colon) return;
    }
}

void Parser::singleLineIf(IfStmt::Branch first, std::vector<IfStmt::Branch>& branches) {
    const bool outer = std::exchange(inLineIf_, true);
    statementsOnLine(first.body);
    branches.push_back(first);
    if (token() == Token::Else) {
        IfStmt::Branch other{nullptr, {}, line()};
        lexer_.advance();
        statementsOnLine(other.body);
        branches.push_back(other);
    }
    inLineIf_ = outer;
    if (token() == Token::End) expectEnd(Token::If, Syntax::ExpectedIf);
}

void Parser::blockIf(IfStmt::Branch branch, std::vector<IfStmt::Branch>& branches) {
    for (;;) {
        block(branch.body);
        branches.push_back(branch);
        if (branch.condition == nullptr || (token() != Token::ElseIf && token() != Token::Else)) break;
        branch = IfStmt::Branch{nullptr, {}, line()};
        const bool isElseIf = token() == Token::ElseIf;
        lexer_.advance();
        if (!isElseIf) continue;
        branch.condition = expression();
        expect(Token::Then, Syntax::ExpectedThen);
    }
    expectEnd(Token::If, Syntax::ExpectedIf);
}

void Parser::select(Block& into) {
    const std::uint32_t atLine = line();
    lexer_.advance();
    expect(Token::Case, Syntax::ExpectedCase);
    Expr* subject = expression();
    expectStatementEnd();
    skipSeparators();
    std::vector<SelectStmt::Case> cases;
    while (token() == Token::Case) {
        if (!cases.empty() && cases.back().values.empty()) lexer_.fail(Syntax::General);
        cases.push_back(caseClause());
    }
    if (cases.empty() && token() != Token::End) lexer_.fail(Syntax::ExpectedCase);
    expectEnd(Token::Select, Syntax::ExpectedSelect);
    add(into, SelectStmt{{StmtKind::Select, atLine}, subject, module_->arena.copy(cases)});
}

SelectStmt::Case Parser::caseClause() {
    SelectStmt::Case clause{{}, {}, line()};
    lexer_.advance();
    if (!accept(Token::Else)) {
        std::vector<Expr*> values;
        do {
            values.push_back(expression());
        } while (accept(Token::Comma));
        clause.values = module_->arena.copy(values);
    }
    block(clause.body);
    return clause;
}

// Loops ---------------------------------------------------------------------------------------------------------------

void Parser::forStatement(Block& into) {
    const std::uint32_t atLine = line();
    lexer_.advance();
    if (accept(Token::Each)) return forEach(into, atLine);
    if (token() != Token::Name) lexer_.fail(Syntax::ExpectedIdentifier);
    ForStmt loop{{StmtKind::For, atLine}, primary(), nullptr, nullptr, nullptr, {}};
    if (token() == Token::Open || token() == Token::Dot) lexer_.fail(Syntax::InvalidForVariable);
    expect(Token::Equal, Syntax::ExpectedEqual);
    loop.from = expression();
    expect(Token::To, Syntax::ExpectedTo);
    loop.to = expression();
    if (acceptName("step")) loop.step = expression();
    nestedBlock(loop.body, forDepth_);
    expect(Token::Next, Syntax::ExpectedNext);
    add(into, loop);
}

void Parser::forEach(Block& into, std::uint32_t atLine) {
    if (token() != Token::Name) lexer_.fail(Syntax::ExpectedIdentifier);
    ForEachStmt loop{{StmtKind::ForEach, atLine}, primary(), nullptr, {}};
    if (token() == Token::Open || token() == Token::Dot) lexer_.fail(Syntax::InvalidForVariable);
    expect(Token::In, Syntax::ExpectedIn);
    loop.group = expression();
    nestedBlock(loop.body, forDepth_);
    expect(Token::Next, Syntax::ExpectedNext);
    add(into, loop);
}

void Parser::whileStatement(Block& into) {
    const std::uint32_t atLine = line();
    lexer_.advance();
    LoopStmt loop{{StmtKind::Loop, atLine}, expression(), {}, atLine, LoopStmt::Test::Before, false, false};
    expectStatementEnd();
    block(loop.body);
    expect(Token::Wend, Syntax::ExpectedWend);
    add(into, loop);
}

void Parser::doStatement(Block& into) {
    LoopStmt loop{{StmtKind::Loop, line()}, nullptr, {}, line(), LoopStmt::Test::Never, false, true};
    lexer_.advance();
    const auto condition = [&](LoopStmt::Test test) {
        loop.test = test;
        loop.testLine = line();
        loop.isUntil = token() == Token::Until;
        lexer_.advance();
        loop.condition = expression();
    };
    if (token() == Token::While || token() == Token::Until)
        condition(LoopStmt::Test::Before);
    else if (!atStatementEnd())
        lexer_.fail(Syntax::ExpectedWhileUntilOrEnd);
    nestedBlock(loop.body, doDepth_);
    expect(Token::Loop, Syntax::ExpectedLoop);
    if (token() == Token::While || token() == Token::Until) {
        if (loop.test == LoopStmt::Test::Before) lexer_.fail(Syntax::ExpectedEndOfStatement);
        condition(LoopStmt::Test::After);
    } else if (!atStatementEnd()) {
        lexer_.fail(loop.test == LoopStmt::Test::Before ? Syntax::ExpectedEndOfStatement
                                                        : Syntax::ExpectedWhileUntilOrEnd);
    }
    add(into, loop);
}

void Parser::with(Block& into) {
    const std::uint32_t atLine = line();
    lexer_.advance();
    WithStmt with{{StmtKind::With, atLine}, expression(), {}};
    nestedBlock(with.body, withDepth_);
    expectEnd(Token::With, Syntax::ExpectedWith);
    add(into, with);
}

void Parser::exit(Block& into) {
    const std::uint32_t atLine = line();
    lexer_.advance();
    ExitKind what = ExitKind::Do;
    bool allowed = false;
    const auto inside = [this](std::initializer_list<ProcedureKind> kinds) {
        if (procedure_ == nullptr) return false;
        for (const ProcedureKind kind : kinds)
            if (procedure_->kind == kind) return true;
        return false;
    };
    if (token() == Token::Do) {
        allowed = doDepth_ > 0;
    } else if (token() == Token::For) {
        what = ExitKind::For;
        allowed = forDepth_ > 0;
    } else if (token() == Token::Function) {
        what = ExitKind::Function;
        allowed = inside({ProcedureKind::Function});
    } else if (token() == Token::Sub) {
        what = ExitKind::Sub;
        allowed = inside({ProcedureKind::Sub});
    } else if (isName("property")) {
        what = ExitKind::Property;
        allowed = inside({ProcedureKind::PropertyGet, ProcedureKind::PropertyLet, ProcedureKind::PropertySet});
    }
    if (!allowed) lexer_.fail(Syntax::InvalidExit);
    lexer_.advance();
    add(into, ExitStmt{{StmtKind::Exit, atLine}, what});
}

void Parser::onError(Block& into) {
    const std::uint32_t atLine = line();
    lexer_.advance();
    if (!acceptName("error")) lexer_.fail(Syntax::General);
    bool resumeNext = false;
    if (accept(Token::Resume)) {
        if (!accept(Token::Next)) lexer_.fail(Syntax::ExpectedNext);
        resumeNext = true;
    } else {
        expect(Token::GoTo, Syntax::General);
        const bool isZero = token() == Token::Literal && module_->literals[lexer_.state().literal].is(Type::Integer) &&
                            module_->literals[lexer_.state().literal].as.i == 0;
        if (!isZero) lexer_.fail(Syntax::General);
        lexer_.advance();
    }
    add(into, OnErrorStmt{{StmtKind::OnError, atLine}, resumeNext});
}

// "End If" and the like.
void Parser::expectEnd(Token what, Syntax otherwise) {
    expect(Token::End, Syntax::ExpectedEnd);
    expect(what, otherwise);
}

}  // namespace tolvan::script
