// Misspelt words, and words that do nothing where they stand.

#include "guide/Checks.h"
#include "guide/Texts.h"

#include <algorithm>

namespace tolvan::guide {
namespace {

// As it is shown and as it is typed.
StyledText inBothScripts(std::string_view roman) {
    StyledText text = shown(roman);
    text.append(latin(" ("));
    text.append(latin(roman));
    text.append(latin(")"));
    return text;
}

StyledText spellingText(const Unknown& unknown, std::string_view typed) {
    const Suggestion& suggestion = unknown.suggestion;
    const StyledText first = inBothScripts(suggestion.words[0]);
    if (suggestion.words.size() > 1)
        return sentence(texts::spellingRivals, {inBothScripts(typed), first, inBothScripts(suggestion.words[1])});
    return sentence(suggestion.sure ? texts::spellingSure : texts::spellingLikely, {inBothScripts(typed), first});
}

// The letters of `word` between those with which `other` begins and ends, too.
Columns differingLetters(std::string_view word, std::string_view other) {
    const std::size_t shorter = std::min(word.size(), other.size());
    std::size_t same = 0;
    while (same < shorter && word[same] == other[same]) ++same;
    std::size_t sameAtEnd = 0;
    while (sameAtEnd < shorter - same && word[word.size() - 1 - sameAtEnd] == other[other.size() - 1 - sameAtEnd])
        ++sameAtEnd;
    return {same, word.size() - sameAtEnd};
}

// In what was typed, and in each word that may be meant.
std::vector<Columns> differences(const StyledText& text, std::string_view typed, const Suggestion& suggestion) {
    std::vector<Columns> places;
    std::size_t from = 0;
    const auto mark = [&](std::string_view word, std::string_view other) {
        const std::size_t at = text.text().find("(" + std::string(word) + ")", from);
        if (at == std::string::npos) return;
        from = at + 1;
        const Columns letters = differingLetters(word, other);
        if (letters.to > letters.from) places.push_back({from + letters.from, from + letters.to});
    };
    mark(typed, suggestion.words[0]);
    for (const std::string& word : suggestion.words) mark(word, typed);
    return places;
}

bool isValue(const Word& word) {
    return word.kind == Word::Kind::Number || word.kind == Word::Kind::Literal || word.kind == Word::Kind::Name;
}

bool isSetThere(const Line& line, std::size_t word) {
    const WordNumbers& sets = line.statement.sets;
    return std::find(sets.begin(), sets.end(), word) != sets.end();
}

bool isFunction(const Program& program, const Word& word) {
    const NameUse* use = program.use(word.glyphs);
    return use != nullptr && (use->function != mainProgram || use->command);
}

// Words of the language that begin no statement.
bool beginsNothing(const Word& word) {
    for (const char* inner :
         {"lahAn", "moThA", "barobar", "adhik", "vajA", "guNile", "bhAgile", "ANi", "kiMvA", "aMkik", "shAbdik", "raMg",
          "ruMdI", "uMchI", "lAMbI", "phAilaMt", "tovar", "te", "paryaMt"})
        if (word.is(inner)) return true;
    return false;
}

void checkStart(const Program& program, std::size_t number, std::size_t start, Report& report) {
    const Line& line = program.meant(number);
    const Word& word = line.words[start];
    if (word.kind == Word::Kind::Name) {
        if (isSetThere(line, start) || isFunction(program, word)) return;
        const bool valueFollows = start + 1 < line.words.size() && isValue(line.words[start + 1]);
        const bool known = program.use(word.glyphs) != nullptr;
        if (valueFollows && (known || line.words[start + 1].kind != Word::Kind::Name))
            return report.add(number, word, sentence(texts::equalSign, {shown(line.romanOf(word))}),
                              {insertAt(number, line.words[start + 1].roman.from, "= ", known)});
        if (known) return report.add(number, word, sentence(texts::nameAlone, {shown(line.romanOf(word))}));
    } else if (word.kind == Word::Kind::Mark || (word.kind == Word::Kind::Language && !beginsNothing(word))) {
        return;
    }
    const StyledText typed = word.kind == Word::Kind::Literal
                                 ? StyledText(line.program.view().substr(word.program.from, word.glyphs.size()))
                                 : shown(line.romanOf(word));
    std::vector<Correction> corrections;
    if (word.kind == Word::Kind::Literal) corrections.push_back(insertAt(number, line.indentation(), "dAkhav ", false));
    report.add(number, word, sentence(texts::unknownCommand, {typed}), std::move(corrections));
}

// Where the comparison begins: after the last word that separates conditions.
std::size_t startOfComparison(const Line& line, std::size_t word) {
    while (word > 0) {
        const Word& before = line.words[word - 1];
        if (before.is("jar") || before.is("nAhItarajar") || before.is("jovar") || before.is("ANi") ||
            before.is("kiMvA") || before.isMark('('))
            break;
        --word;
    }
    return word;
}

}  // namespace

void find::misspelt(const Reading& reading, Report& report) {
    const Program& program = reading.program;
    const std::vector<bool> hadError = report.linesWithError();
    for (const Unknown& unknown : program.unknown()) {
        if (unknown.suggestion.empty() || hadError[unknown.line]) continue;
        const Line& line = program.line(unknown.line);
        const Word& word = line.words[unknown.word];
        const NameUse* use = program.use(word.glyphs);
        if (use != nullptr && use->isSet()) continue;
        std::vector<Correction> corrections;
        corrections.reserve(unknown.suggestion.words.size());
        for (const std::string& other : unknown.suggestion.words)
            corrections.push_back(replaceWord(unknown.line, word, other, unknown.suggestion.sure));
        const std::string_view typed = line.romanOf(word);
        const StyledText text = spellingText(unknown, typed);
        report.add(unknown.line, word, text, std::move(corrections));
        report.emphasise(differences(text, typed, unknown.suggestion));
    }
    for (std::size_t i = 0; i < program.lines().size(); ++i) {
        const Line& line = program.line(i);
        if (!line.statement.splitElseIf) continue;
        const Columns both = line.romanOf(0, 1);
        report.add(i, both, line.programOf(0, 1),
                   sentence(texts::splitElseIf, {shown(line.slice(both)), shown("nAhItarajar")}),
                   {{i + 1, both, "nAhItarajar", true}});
    }
}

void find::unknownCommands(const Reading& reading, Report& report) {
    for (std::size_t i = 0; i < reading.program.lines().size(); ++i)
        for (const std::size_t start : reading.program.meant(i).statement.starts)
            if (!report.hasError(i)) checkStart(reading.program, i, start, report);
}

void find::notEqual(const Reading& reading, Report& report) {
    for (std::size_t i = 0; i < reading.program.lines().size(); ++i) {
        const Line& line = reading.program.meant(i);
        if (report.hasError(i)) continue;
        for (std::size_t word = 1; word < line.words.size(); ++word) {
            if (!line.words[word].is("nAhI") || !line.words[word - 1].isEqualSign()) continue;
            const std::size_t start = startOfComparison(line, word - 1);
            const Columns from = line.romanOf(start, word);
            const std::string mended = "nAhI " + std::string(line.slice(line.romanOf(start, word - 1)));
            report.add(i, line.romanOf(word - 1, word), line.programOf(word - 1, word), sentence(texts::notEqual),
                       {{i + 1, from, mended, true}});
            break;
        }
    }
}

}  // namespace tolvan::guide
