#include "platform/script/syntax/Lexer.h"

#include "platform/encoding/Ascii.h"
#include "platform/script/Conversions.h"
#include "platform/script/StringCell.h"
#include "platform/script/text/DateReading.h"
#include "platform/script/text/NumberReading.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>

namespace tolvan::script {

namespace {

constexpr std::size_t longestReserved = std::max({
#define X(name) sizeof(#name) - 1,
    TOLVAN_RESERVED_WORDS(X)
#undef X
});

Token reservedOrName(std::string_view word) {
    static const std::unordered_map<std::string, Token> table{
#define X(name) {lowerCase(#name), Token::name},
        TOLVAN_RESERVED_WORDS(X)
#undef X
    };
    if (word.size() > longestReserved) return Token::Name;
    const auto place = table.find(lowerCase(word));
    return place == table.end() ? Token::Name : place->second;
}

// The token of a sign of one character, or Name if there is none.
constexpr Token signOf(char first) {
    switch (first) {
#define X(name, character) \
    case character:        \
        return Token::name;
        TOLVAN_SIGNS(X)
#undef X
        default:
            return Token::Name;
    }
}

bool isNameByte(char byte) {
    return isLetter(byte) || isDigit(byte) || byte == '_';
}
bool isBlank(char byte) {
    return byte == ' ' || byte == '\t' || byte == '\v' || byte == '\f';
}

Value wholeNumber(std::int64_t number) {
    if (number <= 0x7fff) return Value::integer(static_cast<std::int16_t>(number));
    return Value::longInteger(static_cast<std::int32_t>(number));
}

}  // namespace

Lexer::Lexer(std::string_view source, Names& names, std::vector<Value>& literals, Heap* heap)
    : source_(source), names_(names), literals_(literals), heap_(heap) {
    advance();
}

void Lexer::fail(Syntax number) const {
    throw SyntaxError{number, state_.tokenLine, state_.tokenColumn};
}

bool Lexer::atLineEnd(std::size_t ahead) const {
    return atEnd(ahead) || peek(ahead) == '\r' || peek(ahead) == '\n';
}

void Lexer::takeLineEnd() {
    if (atEnd()) return;
    state_.next += peek() == '\r' && peek(1) == '\n' ? std::size_t{2} : std::size_t{1};
    ++state_.line;
    state_.lineStart = state_.next;
}

// "_" that belongs to no name, and the end of the line: the statement goes on in the next line.
bool Lexer::skipContinuation() {
    if (peek() != '_') return false;
    std::size_t ahead = 1;
    while (isBlank(peek(ahead))) ++ahead;
    if (!atLineEnd(ahead)) return false;
    state_.next += ahead;
    takeLineEnd();
    return true;
}

void Lexer::skipBlanks() {
    do {
        while (isBlank(peek())) ++state_.next;
    } while (skipContinuation());
}

void Lexer::skipComment() {
    while (!atLineEnd(0)) ++state_.next;
}

void Lexer::endLine() {
    state_.token = atEnd() ? Token::EndOfFile : Token::EndOfLine;
    takeLineEnd();
}

void Lexer::advance() {
    const std::size_t tokenEnd = state_.next;
    state_.endLine = state_.line;
    state_.endColumn = static_cast<std::uint32_t>(tokenEnd - state_.lineStart + 1);
    skipBlanks();
    state_.afterBlank = state_.next != tokenEnd;
    state_.start = state_.next;
    state_.tokenLine = state_.line;
    state_.tokenColumn = static_cast<std::uint32_t>(state_.next - state_.lineStart + 1);
    const char byte = peek();
    if (byte == '\'') skipComment();
    if (atLineEnd(0)) return endLine();
    if (isLetter(byte)) return word();
    if (isDigit(byte) || (byte == '.' && isDigit(peek(1)))) return number();
    switch (byte) {
        case '"':
            return text();
        case '#':
            return date();
        case '[':
            return delimitedName();
        case '&':
            if (!isAfterOperand() &&
                (peek(1) == 'h' || peek(1) == 'H' || peek(1) == 'o' || peek(1) == 'O' || isDigit(peek(1))))
                return hexOrOctal();
            break;
        default:
            break;
    }
    sign();
}

// An "&" there joins, as in "a"&1 or name&hour, and begins no number. After a name and a blank it may begin the first
// argument of a call.
bool Lexer::isAfterOperand() const {
    return state_.token == Token::Literal || state_.token == Token::Close ||
           (state_.token == Token::Name && !state_.afterBlank);
}

void Lexer::word() {
    while (isNameByte(peek())) ++state_.next;
    const std::string_view spelled = spelling();
    // Every word after a dot is the name of a member.
    state_.token = state_.token == Token::Dot ? Token::Name : reservedOrName(spelled);
    if (state_.token == Token::Rem) {
        skipComment();
        return endLine();
    }
    if (state_.token != Token::Name) return;
    if (spelled.size() > longestName) fail(Syntax::IdentifierTooLong);
    state_.name = names_.intern(spelled);
}

NameId Lexer::wordName() {
    return state_.token == Token::Name ? state_.name : names_.intern(spelling());
}

void Lexer::delimitedName() {
    ++state_.next;
    const std::size_t first = state_.next;
    while (!atLineEnd(0) && peek() != ']') ++state_.next;
    if (atLineEnd(0)) fail(Syntax::ExpectedCloseBracket);
    const std::string_view spelled = source_.substr(first, state_.next - first);
    ++state_.next;
    if (spelled.size() > longestName) fail(Syntax::IdentifierTooLong);
    state_.token = Token::Name;
    state_.name = names_.intern(spelled);
}

// Two-part signs may have blanks between their parts ("< =").
void Lexer::sign() {
    const char first = peek();
    ++state_.next;
    const auto second = [this](char wanted) {
        std::size_t ahead = 0;
        while (isBlank(peek(ahead))) ++ahead;
        if (peek(ahead) != wanted) return false;
        state_.next += ahead + 1;
        return true;
    };
    switch (first) {
        case '=':
            state_.token = second('<') ? Token::LessEqual : second('>') ? Token::GreaterEqual : Token::Equal;
            return;
        case '<':
            state_.token = second('=') ? Token::LessEqual : second('>') ? Token::NotEqual : Token::Less;
            return;
        case '>':
            state_.token = second('=') ? Token::GreaterEqual : second('<') ? Token::NotEqual : Token::Greater;
            return;
        default:
            state_.token = signOf(first);
            if (state_.token == Token::Name) fail(Syntax::InvalidCharacter);
    }
}

void Lexer::addLiteral(Value value) {
    state_.token = Token::Literal;
    state_.literal = static_cast<std::uint32_t>(literals_.size());
    literals_.push_back(std::move(value));
}

void Lexer::number() {
    bool isWhole = true;
    while (isDigit(peek())) ++state_.next;
    if (peek() == '.') {
        isWhole = false;
        ++state_.next;
        while (isDigit(peek())) ++state_.next;
    }
    if (peek() == 'e' || peek() == 'E') {
        isWhole = false;
        ++state_.next;
        if (peek() == '+' || peek() == '-') ++state_.next;
        if (!isDigit(peek())) fail(Syntax::InvalidNumber);
        while (isDigit(peek())) ++state_.next;
    }
    // Not strtod: its decimal point depends on the process's locale, which a windowing library may have set.
    const double value = parseNumber(spelling()).value_or(0);
    if (std::isinf(value)) fail(Syntax::InvalidNumber);
    addLiteral(isWhole && value <= 0x7fffffff ? wholeNumber(static_cast<std::int64_t>(value)) : Value::number(value));
}

// &HFFFF is the Integer -1, &HFFFF& the Long 65535: up to 16 bits are those of an Integer unless "&" follows.
void Lexer::hexOrOctal() {
    ++state_.next;
    int radix = 8;
    if (!isDigit(peek())) {
        radix = peek() == 'h' || peek() == 'H' ? 16 : 8;
        ++state_.next;
    }
    std::uint64_t bits = 0;
    std::size_t digits = 0;
    // A letter that is no digit begins the next word, as in "&h01or x".
    while (isDigit(peek()) || digitValue(peek()) < radix) {
        const int digit = digitValue(peek());
        if (digit >= radix) fail(Syntax::InvalidNumber);
        bits = bits * static_cast<std::uint64_t>(radix) + static_cast<std::uint64_t>(digit);
        if (bits > 0xffffffffu) fail(Syntax::InvalidNumber);
        ++digits;
        ++state_.next;
    }
    if (digits == 0) fail(Syntax::InvalidNumber);
    const bool isLong = peek() == '&';
    if (isLong) ++state_.next;
    if (bits <= 0xffff && !isLong)
        addLiteral(Value::integer(static_cast<std::int16_t>(static_cast<std::uint16_t>(bits))));
    else
        addLiteral(Value::longInteger(static_cast<std::int32_t>(static_cast<std::uint32_t>(bits))));
}

void Lexer::text() {
    ++state_.next;
    std::string bytes;
    for (;;) {
        if (atLineEnd(0)) fail(Syntax::UnterminatedString);
        const char byte = peek();
        ++state_.next;
        if (byte == '"') {
            if (peek() != '"') break;
            ++state_.next;
        }
        bytes += byte;
    }
    StringCell* cell = StringCell::create(heap_, bytes.size());
    bytes.copy(cell->bytes(), bytes.size());
    addLiteral(Value::adopt(cell));
}

void Lexer::date() {
    ++state_.next;
    const std::size_t first = state_.next;
    while (!atLineEnd(0) && peek() != '#') ++state_.next;
    if (atLineEnd(0)) fail(Syntax::General);
    const std::string_view inside = source_.substr(first, state_.next - first);
    ++state_.next;
    const std::optional<double> days = parseDate(inside);
    if (!days) fail(Syntax::General);
    addLiteral(Value::date(*days));
}

}  // namespace tolvan::script
