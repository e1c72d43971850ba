#include "translator/Scanner.h"

#include "platform/encoding/Ascii.h"

#include <algorithm>

namespace tolvan {
namespace {

constexpr char quote = '"';

bool isWordCharacter(char c) {
    return isLetter(c) || isDigit(c) || c == '_';
}

std::string_view withoutSign(std::string_view text) {
    if (!text.empty() && (text[0] == '+' || text[0] == '-')) text.remove_prefix(1);
    return text;
}

// False, with nothing taken away, if `text` does not begin with a digit.
bool takeDigits(std::string_view& text) {
    const std::size_t count = std::min(text.find_first_not_of("0123456789"), text.size());
    text.remove_prefix(count);
    return count > 0;
}

}  // namespace

bool IsSeparator(char character, Font font) {
    return character == ' ' || (font == Font::Latin && !isWordCharacter(character));
}

bool IsNumber(std::string_view text) {
    text = withoutSign(text);
    if (!takeDigits(text)) return false;
    if (!text.empty() && text[0] == '.') {
        text.remove_prefix(1);
        if (!takeDigits(text)) return false;
    }
    if (!text.empty() && (text[0] == 'e' || text[0] == 'E')) {
        text = withoutSign(text.substr(1));
        if (!takeDigits(text)) return false;
    }
    return text.empty();
}

std::optional<Token> Scanner::next() {
    if (atSeparator_) {
        atSeparator_ = false;
        if (statement_[position_] == quote) inLiteral_ = !inLiteral_;
        return take(Token::Kind::Separator, position_ + 1);
    }
    if (position_ == statement_.size()) return std::nullopt;
    const std::size_t end = findTokenEnd();
    if (end == statement_.size()) return take(Token::Kind::Lost, end);
    atSeparator_ = true;
    return take(inLiteral_ ? Token::Kind::Literal : Token::Kind::Word, end);
}

// The next separator; inside a literal the next one that closes it; the end of the statement if there is none.
std::size_t Scanner::findTokenEnd() const {
    for (std::size_t i = position_; i < statement_.size(); ++i) {
        if (inLiteral_ && statement_[i] != quote) continue;
        if (IsSeparator(statement_[i], statement_.font(i))) return i;
    }
    return statement_.size();
}

Token Scanner::take(Token::Kind kind, std::size_t end) {
    const StyledView text = statement_.substr(position_, end - position_);
    position_ = end;
    return {kind, text};
}

}  // namespace tolvan
