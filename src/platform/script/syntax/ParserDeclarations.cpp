#include "platform/script/syntax/Parser.h"

namespace tolvan::script {

void Parser::optionExplicit() {
    lexer_.advance();
    if (!acceptName("explicit")) lexer_.fail(Syntax::General);
    expectStatementEnd();
    module_->optionExplicit = true;
}

// Takes a procedure or a class, which stand only outside procedures and blocks.
bool Parser::declaration() {
    if (procedure_ != nullptr || depth_ > 1) return false;
    const Lexer::State before = lexer_.state();
    bool isPrivate = false;
    bool isDefault = false;
    if (token() == Token::Public || token() == Token::Private) {
        isPrivate = token() == Token::Private;
        lexer_.advance();
        if (isName("default")) {
            isDefault = true;
            lexer_.advance();
        }
    }
    if (token() == Token::Sub || token() == Token::Function) {
        if (isDefault) lexer_.fail(Syntax::OutsideClass);
        module_->procedures.push_back(procedure(isPrivate, false, false));
        expectStatementEnd();
        return true;
    }
    if (token() == Token::Class) {
        classDeclaration();
        expectStatementEnd();
        return true;
    }
    lexer_.restore(before);
    if (isName("property")) {
        lexer_.advance();
        const bool isDeclaration = isName("get") || token() == Token::Let || token() == Token::Set;
        if (isDeclaration) lexer_.fail(Syntax::OutsideClass);
        lexer_.restore(before);
    }
    return false;
}

// The name of a method or property: it always stands after an object and a dot, so that any word will do.
NameId Parser::memberName() {
    if (!isReserved(token())) return expectName();
    const NameId name = lexer_.wordName();
    lexer_.advance();
    return name;
}

// Whether the word, after Public or Private, is a field's name although it could begin a declaration.
bool Parser::namesField() {
    const Token next = following();
    return next == Token::EndOfLine || next == Token::EndOfFile || next == Token::Colon || next == Token::Comma ||
           next == Token::Open;
}

ProcedureNode* Parser::procedure(bool isPrivate, bool isDefault, bool inClass) {
    auto* made = module_->arena.make<ProcedureNode>();
    made->kind = token() == Token::Sub ? ProcedureKind::Sub : ProcedureKind::Function;
    made->line = line();
    made->isPrivate = isPrivate;
    made->isDefault = isDefault;
    lexer_.advance();
    made->name = inClass ? memberName() : expectName();
    parameters(*made);
    if (inClass && made->kind == ProcedureKind::Sub && !made->parameters.empty()) {
        const std::string name = lowerCase(names_.spelling(made->name));
        if (name == "class_initialize" || name == "class_terminate") lexer_.fail(Syntax::InitializeArguments);
    }
    procedureBody(*made);
    return made;
}

ProcedureNode* Parser::property(bool isPrivate, bool isDefault) {
    auto* made = module_->arena.make<ProcedureNode>();
    made->line = line();
    made->isPrivate = isPrivate;
    made->isDefault = isDefault;
    lexer_.advance();
    if (isName("get"))
        made->kind = ProcedureKind::PropertyGet;
    else if (token() == Token::Let)
        made->kind = ProcedureKind::PropertyLet;
    else if (token() == Token::Set)
        made->kind = ProcedureKind::PropertySet;
    else
        lexer_.fail(Syntax::ExpectedLetSetGet);
    if (isDefault && made->kind != ProcedureKind::PropertyGet) lexer_.fail(Syntax::DefaultOnGet);
    lexer_.advance();
    made->name = memberName();
    parameters(*made);
    if (made->kind != ProcedureKind::PropertyGet && made->parameters.empty())
        lexer_.fail(Syntax::PropertyWithoutArgument);
    procedureBody(*made);
    return made;
}

void Parser::parameters(ProcedureNode& to) {
    if (!accept(Token::Open)) return;
    std::vector<Parameter> list;
    if (token() != Token::Close) {
        do {
            if (list.size() == mostParameters) lexer_.fail(Syntax::TooBig);
            Parameter parameter{};
            if (accept(Token::ByVal))
                parameter.byValue = true;
            else
                accept(Token::ByRef);
            parameter.name = expectName();
            if (accept(Token::Open)) expect(Token::Close, Syntax::ExpectedClose);
            for (const Parameter& earlier : list)
                if (earlier.name == parameter.name) lexer_.fail(Syntax::NameRedefined);
            list.push_back(parameter);
        } while (accept(Token::Comma));
    }
    expect(Token::Close, Syntax::ExpectedClose);
    to.parameters = module_->arena.copy(list);
}

void Parser::procedureBody(ProcedureNode& of) {
    const int outerFor = std::exchange(forDepth_, 0);
    const int outerDo = std::exchange(doDepth_, 0);
    const int outerWith = std::exchange(withDepth_, 0);
    procedure_ = &of;
    block(of.body);
    procedure_ = nullptr;
    forDepth_ = outerFor;
    doDepth_ = outerDo;
    withDepth_ = outerWith;
    of.endLine = line();
    expect(Token::End, Syntax::ExpectedEnd);
    switch (of.kind) {
        case ProcedureKind::Sub:
            return expect(Token::Sub, Syntax::ExpectedSub);
        case ProcedureKind::Function:
            return expect(Token::Function, Syntax::ExpectedFunction);
        default:
            if (!acceptName("property")) lexer_.fail(Syntax::ExpectedProperty);
    }
}

void Parser::classDeclaration() {
    ClassNode made{};
    made.line = line();
    lexer_.advance();
    made.name = expectName();
    expectStatementEnd();
    inClass_ = true;
    for (skipSeparators(); token() != Token::End; skipSeparators()) {
        classMember(made);
        expectStatementEnd();
    }
    inClass_ = false;
    expectEnd(Token::Class, Syntax::ExpectedClass);
    module_->classes.push_back(std::move(made));
}

void Parser::classMember(ClassNode& into) {
    bool isPrivate = false;
    bool isDefault = false;
    bool hasVisibility = false;
    if (token() == Token::Public || token() == Token::Private) {
        hasVisibility = true;
        isPrivate = token() == Token::Private;
        lexer_.advance();
        if ((isName("default") || isName("property")) && namesField()) return fields(into, isPrivate);
    }
    if (isName("default")) {
        if (isPrivate || !hasVisibility) lexer_.fail(Syntax::DefaultWithoutPublic);
        isDefault = true;
        lexer_.advance();
    }
    if (token() == Token::Sub || token() == Token::Function) {
        into.members.push_back(procedure(isPrivate, isDefault, true));
    } else if (isName("property")) {
        into.members.push_back(property(isPrivate, isDefault));
    } else if (isDefault) {
        lexer_.fail(Syntax::DefaultOnMember);
    } else if (token() == Token::Dim) {
        if (hasVisibility) lexer_.fail(Syntax::ExpectedIdentifier);
        lexer_.advance();
        fields(into, false);
    } else if (hasVisibility) {
        fields(into, isPrivate);
    } else {
        lexer_.fail(token() == Token::EndOfFile ? Syntax::ExpectedEnd : Syntax::ExpectedStatement);
    }
}

void Parser::fields(ClassNode& into, bool isPrivate) {
    do {
        const std::uint32_t atLine = line();
        into.fields.push_back({variable(), isPrivate, atLine});
    } while (accept(Token::Comma));
}

}  // namespace tolvan::script
