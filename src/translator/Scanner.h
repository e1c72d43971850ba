// Cuts a statement into words, separators and string literals by the characters and their fonts. The translator reads
// it, and so does whatever shows the words of a program.
#pragma once

#include "platform/richtext/StyledText.h"

#include <optional>
#include <string_view>

namespace tolvan {

// Blanks and Latin marks separate words. Latin letters, digits and "_" never do, and neither does anything that is
// shown in another font than the Latin one: there "<" is part of a word.
bool IsSeparator(char character, Font font);

// Whether a word is a number: [sign] digits [. digits] [exponent].
bool IsNumber(std::string_view word);

struct Token {
    enum class Kind {
        Word,       // up to the next separator; empty between two separators
        Separator,  // one character; a double quote opens or closes a literal
        Literal,    // what stands between two double quotes
        Lost,       // after the last separator, or after a quote that nothing closes: not part of the program
    };
    Kind kind;
    StyledView text;  // a slice of the statement
};

class Scanner {
  public:
    // `statement` must outlive the scanner and its tokens.
    explicit Scanner(StyledView statement) : statement_(statement) {}

    // The tokens joined are the statement. Each separator has a word or a literal before it. Nothing at the end.
    std::optional<Token> next();

  private:
    std::size_t findTokenEnd() const;
    Token take(Token::Kind kind, std::size_t end);

    StyledView statement_;
    std::size_t position_ = 0;  // after the tokens given so far
    bool inLiteral_ = false;
    bool atSeparator_ = false;  // the word or literal before the separator at position_ has been given
};

}  // namespace tolvan
