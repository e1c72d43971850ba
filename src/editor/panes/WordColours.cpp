#include "editor/panes/WordColours.h"

#include "dialogs/LookColours.h"
#include "library/LibraryWords.h"
#include "translator/Keywords.h"
#include "translator/LanguageWords.h"
#include "translator/Scanner.h"

#include <algorithm>

namespace tolvan {
namespace {

class Colours {
  public:
    void add(std::size_t start, std::size_t length, QColor colour) {
        if (length == 0) return;
        if (!runs_.empty() && runs_.back().colour == colour && runs_.back().start + runs_.back().length == start)
            runs_.back().length += length;
        else
            runs_.push_back({start, length, colour});
    }
    std::vector<ColourRun> take() { return std::move(runs_); }

  private:
    std::vector<ColourRun> runs_;
};

void addWord(Colours& colours, std::size_t start, std::string_view word, const IsOwnWord& isOwn) {
    if (IsNumber(word))
        colours.add(start, word.size(), look::colours().number);
    else if (isLanguageWord(word))
        colours.add(start, word.size(), look::colours().keyword);
    else if (const LibraryWord* ready = findLibraryWord(word); ready != nullptr && !isOwn(*ready))
        colours.add(start, word.size(), look::colours().wordOfLibrary);
}

}  // namespace

std::vector<ColourRun> wordColours(StyledView line, const IsOwnWord& isOwn) {
    const std::size_t comment = std::min(line.text().find(words::comment), line.size());
    StyledText statement(line.substr(0, comment));
    statement.append(" ", Font::Latin);  // a word counts only if a separator follows it

    Colours colours;
    Scanner scanner(statement);
    std::size_t start = 0;
    bool inLiteral = false;
    while (const std::optional<Token> token = scanner.next()) {
        const std::size_t length = std::min(token->text.size(), comment - std::min(comment, start));
        const bool isQuote = token->kind == Token::Kind::Separator && token->text[0] == '"';
        if (isQuote) inLiteral = !inLiteral;
        if (token->kind == Token::Kind::Word)
            addWord(colours, start, token->text.text(), isOwn);
        else if (isQuote || token->kind == Token::Kind::Literal || (token->kind == Token::Kind::Lost && inLiteral))
            colours.add(start, length, look::colours().literal);
        start += token->text.size();
    }
    colours.add(comment, line.size() - comment, look::colours().comment);
    return colours.take();
}

}  // namespace tolvan
