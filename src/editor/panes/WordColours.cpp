#include "editor/panes/WordColours.h"

#include "dialogs/LookColours.h"
#include "library/LibraryWords.h"
#include "translator/Keywords.h"
#include "translator/LanguageWords.h"
#include "translator/Scanner.h"

#include <algorithm>

namespace tolvan {
namespace {

// The colour of a word; none for a name.
QColor colourOf(std::string_view word, const IsOwnWord& isOwn) {
    if (IsNumber(word)) return look::colours().number;
    if (isLanguageWord(word)) return look::colours().keyword;
    const LibraryWord* const ready = findLibraryWord(word);
    return ready != nullptr && !isOwn(*ready) ? look::colours().wordOfLibrary : QColor();
}

}  // namespace

std::vector<ColourRun> wordColours(StyledView line, const IsOwnWord& isOwn) {
    const std::size_t comment = std::min(line.text().find(words::comment), line.size());
    StyledText statement(line.substr(0, comment));
    statement.append(" ", Font::Latin);  // a word counts only if a separator follows it

    std::vector<ColourRun> runs;
    const auto add = [&runs](std::size_t start, std::size_t length, QColor colour) {
        if (length > 0 && colour.isValid()) appendRun(runs, start, length, colour);
    };
    Scanner scanner(statement);
    std::size_t start = 0;
    bool inLiteral = false;
    while (const std::optional<Token> token = scanner.next()) {
        const std::size_t length = std::min(token->text.size(), comment - std::min(comment, start));
        const bool isQuote = token->kind == Token::Kind::Separator && token->text[0] == '"';
        if (isQuote) inLiteral = !inLiteral;
        if (token->kind == Token::Kind::Word)
            add(start, token->text.size(), colourOf(token->text.text(), isOwn));
        else if (isQuote || token->kind == Token::Kind::Literal || (token->kind == Token::Kind::Lost && inLiteral))
            add(start, length, look::colours().literal);
        start += token->text.size();
    }
    add(comment, line.size() - comment, look::colours().comment);
    return runs;
}

}  // namespace tolvan
