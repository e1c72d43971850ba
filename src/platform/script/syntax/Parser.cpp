#include "platform/script/syntax/Parser.h"

namespace tolvan::script {

Parser::Parser(std::string_view source, Names& names, Heap* heap)
    : module_(std::make_unique<Module>(heap)), names_(names), lexer_(source, names, module_->literals, heap) {}

std::unique_ptr<Module> Parser::parseModule() {
    skipSeparators();
    if (token() == Token::Option) optionExplicit();
    block(module_->body);
    if (token() != Token::EndOfFile) lexer_.fail(Syntax::ExpectedStatement);
    module_->lastLine = line();
    return std::move(module_);
}

std::unique_ptr<Module> Parser::parseSingleExpression(Expr*& result) {
    skipSeparators();
    result = expression();
    skipSeparators();
    if (token() != Token::EndOfFile) lexer_.fail(Syntax::ExpectedEndOfStatement);
    return std::move(module_);
}

bool Parser::accept(Token wanted) {
    if (token() != wanted) return false;
    lexer_.advance();
    return true;
}

void Parser::expect(Token wanted, Syntax otherwise) {
    if (!accept(wanted)) lexer_.fail(otherwise);
}

// Words that are reserved only in their place, such as Step and Property.
bool Parser::isName(std::string_view word) const {
    return token() == Token::Name && lexer_.spelling().size() == word.size() && lowerCase(lexer_.spelling()) == word;
}

bool Parser::acceptName(std::string_view word) {
    if (!isName(word)) return false;
    lexer_.advance();
    return true;
}

NameId Parser::expectName() {
    if (token() != Token::Name) lexer_.fail(Syntax::ExpectedIdentifier);
    const NameId name = lexer_.state().name;
    lexer_.advance();
    return name;
}

// The token after this one.
Token Parser::following() {
    const Lexer::State before = lexer_.state();
    lexer_.advance();
    const Token next = token();
    lexer_.restore(before);
    return next;
}

// Else and End close the statements of an If on one line.
bool Parser::atStatementEnd() const {
    return token() == Token::EndOfLine || token() == Token::Colon || token() == Token::EndOfFile ||
           token() == Token::Else || token() == Token::End;
}

void Parser::expectStatementEnd() {
    if (token() != Token::EndOfLine && token() != Token::Colon && token() != Token::EndOfFile)
        lexer_.fail(Syntax::ExpectedEndOfStatement);
}

void Parser::skipSeparators() {
    while (token() == Token::EndOfLine || token() == Token::Colon) lexer_.advance();
}

}  // namespace tolvan::script
