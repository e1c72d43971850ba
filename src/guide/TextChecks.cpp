// Quotes, "#" marks and comments.

#include "guide/Checks.h"
#include "guide/Texts.h"
#include "translator/Keywords.h"
#include "translator/Scanner.h"

#include <algorithm>

namespace tolvan::guide {
namespace {

// The line with each quote written as the editor writes it: #"#.
std::string withWholeQuotes(std::string_view roman) {
    std::string mended;
    for (std::size_t i = 0; i < roman.size(); ++i) {
        if (roman[i] == '#' && i + 1 < roman.size() && roman[i + 1] == '"') continue;
        if (roman[i] != '"') {
            mended += roman[i];
            continue;
        }
        mended += "#\"#";
        if (i + 1 < roman.size() && roman[i + 1] == '#') ++i;
    }
    return mended;
}

std::size_t count(std::string_view text, char character) {
    return static_cast<std::size_t>(std::count(text.begin(), text.end(), character));
}

Correction replaceLine(const Line& line, std::size_t number, std::string text, bool sure) {
    return {number + 1, {0, line.roman.size()}, std::move(text), sure};
}

// What the line says with its quotes made whole, if that is a right line.
std::vector<Correction> mendedQuotes(const Line& line, std::size_t number) {
    std::string mended = withWholeQuotes(line.roman);
    if (count(mended, '"') % 2 != 0) mended += "#\"#";
    if (mended == line.roman || Line(mended).openLatin || Line(mended).openQuote) return {};
    return {replaceLine(line, number, std::move(mended), count(line.roman, '"') % 2 == 0)};
}

Columns programOf(const Line& line, Columns roman) {
    for (const Word& word : line.words)
        if (word.roman.from <= roman.from && roman.to <= word.roman.to) return word.program;
    return {0, line.program.size()};
}

bool hasRomanQuote(const Line& line, const Word& word) {
    return word.kind == Word::Kind::Name && line.romanOf(word).find('"') != std::string_view::npos;
}

bool isUnknownName(const Program& program, const Line& line, const Word& word) {
    return word.kind == Word::Kind::Name && program.use(word.glyphs) == nullptr && line.roman[word.roman.from] != '"';
}

// Words after an output that are no names: two of them, one after the other.
void checkBareText(const Program& program, std::size_t number, Report& report) {
    const Line& line = program.line(number);
    if (line.words.size() < 3 || !(line.words[0].is("dAkhav") || line.words[0].is("lihI"))) return;
    const auto unknown = [&](const Word& word) { return isUnknownName(program, line, word); };
    if (!unknown(line.words[1]) || !unknown(line.words[2])) return;
    const auto end = std::find_if_not(line.words.begin() + 1, line.words.end(), [](const Word& word) {
        return word.kind == Word::Kind::Name || word.kind == Word::Kind::Language || word.isMark('!') ||
               word.isMark('?');
    });
    const Columns roman{line.words[1].roman.from, (end - 1)->roman.to};
    const Columns place{line.words[1].program.from, (end - 1)->program.to};
    report.add(number, roman, place, sentence(texts::textWithoutQuotes),
               {{number + 1, roman, "#\"#" + std::string(line.slice(roman)) + "#\"#", true}});
}

// The line as the translator sees it, with its literals blanked.
std::string withoutLiterals(const StyledText& program, std::size_t end) {
    std::string text = program.text().substr(0, end);
    bool inside = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool quote = program.font(i) == Font::Latin && text[i] == '"';
        if (quote)
            inside = !inside;
        else if (inside)
            text[i] = 'x';
    }
    return text;
}

std::string working(std::string_view line) {
    return " " + std::string(line) + " ";
}

// The word on which the language acts, by what the line is taken for.
std::string_view actingWord(StatementKind kind, bool head) {
    if (head) return "upaprAyojan";
    switch (kind) {
        case StatementKind::Comment:
            return "suchanA";
        case StatementKind::CountedLoop:
            return "sAThI";
        case StatementKind::Line:
            return "regh";
        case StatementKind::Box:
            return "Ayat";
        case StatementKind::Point:
            return "biMdU";
        case StatementKind::Circle:
            return "vartuL";
        default:
            return "saMpav";
    }
}

void checkWords(const Line& line, std::size_t number, Report& report) {
    const std::string& whole = line.program.text();
    const std::string blanked = withoutLiterals(line.program, whole.size());
    const StatementKind kind = statementKind(working(whole));
    const std::size_t commentAt = blanked.find(words::comment);
    const std::string statement = blanked.substr(0, commentAt);
    const bool head = isFunctionHead(whole) != isFunctionHead(statement);
    const StatementKind right = statementKind(working(blanked));
    if (kind == right && !head) {
        if (commentAt == std::string::npos) return;
        const bool own = commentAt == 0 || IsSeparator(whole[commentAt - 1], line.program.font(commentAt - 1));
        const std::size_t end = commentAt + words::comment.size();
        const bool ends = end == whole.size() || IsSeparator(whole[end], line.program.font(end));
        if (own && ends) return;
        std::string_view name = line.slice(*line.comment);
        name = name.substr(0, name.find(' '));
        return report.add(number, {line.comment->from, line.comment->from + name.size()}, {commentAt, end},
                          sentence(texts::commentInName, {shown(name)}));
    }
    const bool inComment =
        head && isFunctionHead(blanked) != isFunctionHead(statement) && commentAt != std::string::npos;
    const Columns roman = inComment && line.comment ? *line.comment : Columns{line.indentation(), line.roman.size()};
    report.add(number, roman, {0, whole.size()},
               sentence(inComment ? texts::wordInComment : texts::wordInLiteral, {shown(actingWord(kind, head))}));
}

}  // namespace

void find::openLatin(const Reading& reading, Report& report) {
    for (std::size_t i = 0; i < reading.program.lines().size(); ++i) {
        const Line& line = reading.program.line(i);
        if (!line.openLatin) continue;
        const Columns roman{*line.openLatin, *line.openLatin + 1};
        report.add(i, roman, programOf(line, roman), sentence(texts::openLatin, {latin("#")}), mendedQuotes(line, i));
    }
}

void find::openQuotes(const Reading& reading, Report& report) {
    for (std::size_t i = 0; i < reading.program.lines().size(); ++i) {
        const Line& line = reading.program.line(i);
        if (report.hasError(i)) continue;
        const bool cut = line.comment && line.openQuote;  // a comment's word in the literal
        if (line.openQuote && !cut) {
            const Columns roman{*line.openQuote, *line.openQuote + 1};
            report.add(i, roman, programOf(line, roman), sentence(texts::openQuote), mendedQuotes(line, i));
            continue;
        }
        const auto quoted = std::find_if(line.words.begin(), line.words.end(),
                                         [&](const Word& word) { return hasRomanQuote(line, word); });
        if (quoted != line.words.end())
            report.add(i, *quoted, sentence(texts::quotesInGlyphs, {latin("#\"#")}), mendedQuotes(line, i));
        else
            checkBareText(reading.program, i, report);
    }
}

void find::wordsInTexts(const Reading& reading, Report& report) {
    for (std::size_t i = 0; i < reading.program.lines().size(); ++i)
        if (!report.hasError(i)) checkWords(reading.program.line(i), i, report);
}

}  // namespace tolvan::guide
