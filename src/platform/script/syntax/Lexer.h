// Cuts a module into tokens. Comments and line continuations vanish here; a line ends at CR, LF or CR LF.
#pragma once

#include "platform/script/Value.h"
#include "platform/script/syntax/Names.h"
#include "platform/script/syntax/SyntaxError.h"
#include "platform/script/syntax/Token.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tolvan::script {

class Lexer {
  public:
    // `source` and `names` must outlive the lexer. Literals are appended to `literals`; texts lie in `heap`, if any.
    Lexer(std::string_view source, Names& names, std::vector<Value>& literals, Heap* heap);

    // Where the lexer stands: copied to look ahead, and put back to read again.
    struct State {
        std::size_t next = 0;  // first byte after the token
        std::uint32_t line = 1;
        std::size_t lineStart = 0;
        Token token = Token::EndOfLine;
        NameId name = 0;            // of a Name
        std::uint32_t literal = 0;  // of a Literal: its index
        std::size_t start = 0;      // of the token
        std::uint32_t tokenLine = 1;
        std::uint32_t tokenColumn = 1;
        bool afterBlank = false;  // blanks stand before the token
        // Where the token before ends.
        std::uint32_t endLine = 1;
        std::uint32_t endColumn = 1;
    };

    void advance();
    const State& state() const { return state_; }
    void restore(const State& state) { state_ = state; }
    // The spelling of the token.
    std::string_view spelling() const { return source_.substr(state_.start, state_.next - state_.start); }
    // The name that a Name or a reserved word spells: a class may name its members by reserved words.
    NameId wordName();

    [[noreturn]] void fail(Syntax number) const;

    static constexpr std::size_t longestName = 255;

  private:
    char peek(std::size_t ahead = 0) const {
        const std::size_t place = state_.next + ahead;
        return place < source_.size() ? source_[place] : '\0';
    }
    bool atEnd(std::size_t ahead = 0) const { return state_.next + ahead >= source_.size(); }
    void skipBlanks();
    bool skipContinuation();
    void skipComment();
    bool atLineEnd(std::size_t ahead) const;
    void takeLineEnd();
    void endLine();
    bool isAfterOperand() const;
    void word();
    void delimitedName();
    void sign();
    void number();
    void hexOrOctal();
    void text();
    void date();
    void addLiteral(Value value);

    std::string_view source_;
    Names& names_;
    std::vector<Value>& literals_;
    Heap* heap_;
    State state_;
};

}  // namespace tolvan::script
