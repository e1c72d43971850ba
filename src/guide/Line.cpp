#include "guide/Line.h"

#include "guide/ReadStatement.h"
#include "platform/transliteration/MarkRoman.h"
#include "platform/transliteration/ReplaceRomanChars.h"
#include "translator/Keywords.h"
#include "translator/Scanner.h"
#include "translator/Translator.h"

#include <algorithm>

namespace tolvan::guide {
namespace {

bool endsRomanWord(char c) {
    return c == ' ' || c == '\t' || c == '#' || isRomanPunctuation(c);
}

bool isNumber(std::string_view word) {
    if (word.empty() || word[0] < '0' || word[0] > '9') return false;
    return Translator().TranslateToken(StyledText(word, Font::Devanagari)) == word;
}

}  // namespace

// Makes the program line of a Roman one, with the Roman place of each of its characters, and cuts it into words.
class Line::Reader {
  public:
    explicit Reader(Line& line) : line_(line) {}

    void read() {
        transliterate();
        cutComment();
        scan();
    }

  private:
    void transliterate() {
        const std::string_view typed = line_.roman;
        bool latin = false;
        std::size_t lastMark = 0;
        for (std::size_t i = 0; i < typed.size();) {
            if (typed[i] == '#') {
                latin = !latin;
                lastMark = i++;
            } else if (latin || endsRomanWord(typed[i])) {
                const bool marks = latin || isRomanPunctuation(typed[i]);
                const char shown = typed[i] == '\t' && !latin ? ' ' : typed[i];
                append({&shown, 1}, marks ? Font::Latin : Font::Devanagari, {i, i + 1});
                ++i;
            } else {
                const auto* const end = std::find_if(typed.begin() + i, typed.end(), endsRomanWord);
                const auto length = static_cast<std::size_t>(end - typed.begin()) - i;
                append(LineConvert(typed.substr(i, length)), Font::Devanagari, {i, i + length});
                i += length;
            }
        }
        if (latin) line_.openLatin = lastMark;
    }

    void append(std::string_view text, Font font, Columns from) {
        line_.program.append(text, font);
        from_.insert(from_.end(), text.size(), from);
    }

    // The comment begins wherever its word stands, in a literal or a longer word, too.
    void cutComment() {
        statementSize_ = line_.program.size();
        const std::size_t found = line_.program.text().find(words::comment);
        line_.isHead = isFunctionHead(line_.program.text());
        if (found == std::string::npos) return;
        statementSize_ = found;
        line_.comment = Columns{from_[found].from, line_.roman.size()};
    }

    void scan() {
        const StyledText working = workingStatement(line_.program.view().substr(0, statementSize_));
        line_.statement.form = statementKind(working.text());
        Scanner scanner(working);
        std::size_t position = 0;
        while (const std::optional<Token> token = scanner.next()) {
            take(*token, position);
            position += token->text.size();
        }
        if (quote_) line_.openQuote = romanOf(*quote_, *quote_ + 1).from;
    }

    // `position` is that in the working statement, which has a blank before.
    void take(const Token& token, std::size_t position) {
        const std::size_t from = position - (position > 0 ? 1 : 0);
        const std::size_t to = std::min(position + token.text.size() - 1, statementSize_);
        if (token.text.empty() || from >= to || token.text.text() == " ") return;
        const bool separates = token.kind == Token::Kind::Separator;
        if (separates && token.text[0] == '"') {
            if (quote_) add(Word::Kind::Literal, *quote_, to);
            quote_ = quote_ ? std::nullopt : std::optional(from);
        } else if (separates) {
            add(Word::Kind::Mark, from, to);
        } else if (token.kind == Token::Kind::Word) {
            addWord(token.text.text(), from, to);
        }
    }

    void addWord(std::string_view word, std::size_t from, std::size_t to) {
        const bool quoted = word.size() > 1 && word.front() == '"' && word.back() == '"';
        const LanguageWord* language = findLanguageWord(word);
        add(quoted                ? Word::Kind::Literal
            : language != nullptr ? Word::Kind::Language
            : isNumber(word)      ? Word::Kind::Number
                                  : Word::Kind::Name,
            from, to);
        line_.words.back().language = language;
    }

    void add(Word::Kind kind, std::size_t from, std::size_t to) {
        line_.words.push_back({kind, romanOf(from, to), {from, to}, {}, nullptr});
        line_.words.back().glyphs = std::string_view(line_.program.text()).substr(from, to - from);
    }

    Columns romanOf(std::size_t from, std::size_t to) const { return {from_[from].from, from_[to - 1].to}; }

    Line& line_;
    std::vector<Columns> from_;  // where each character of the program line comes from
    std::size_t statementSize_ = 0;
    std::optional<std::size_t> quote_;  // an open one
};

Line::Line(std::string_view text) : roman(text) {
    Reader(*this).read();
    readStatement(*this);
}

const Word* Line::find(std::string_view languageWord) const {
    const auto found =
        std::find_if(words.begin(), words.end(), [&](const Word& word) { return word.is(languageWord); });
    return found == words.end() ? nullptr : &*found;
}

std::size_t Line::indentation() const {
    return std::min(roman.find_first_not_of(" \t"), roman.size());
}

}  // namespace tolvan::guide
