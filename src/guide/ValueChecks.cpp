// How many values a command or function gets, and what the script engine's parser refuses.

#include "guide/Checks.h"
#include "guide/Syntax.h"
#include "guide/Texts.h"

#include <algorithm>
#include <array>

namespace tolvan::guide {
namespace {

StyledText digits(std::size_t number) {
    return {std::to_string(number), Font::Devanagari};
}

// The words of a simple statement after its first one.
struct Rest {
    std::size_t from;
    std::size_t to;
};

bool partsStatements(const Word& word) {
    return word.is("tar") || word.is("nAhItar") || word.isMark(':');
}

Rest restOf(const Line& line, std::size_t start) {
    std::size_t end = start + 1;
    while (end < line.words.size() && !partsStatements(line.words[end])) ++end;
    return {start + 1, end};
}

// The commas that no bracket encloses.
WordNumbers commas(const Line& line, Rest rest) {
    WordNumbers found;
    int depth = 0;
    for (std::size_t i = rest.from; i < rest.to; ++i) {
        if (line.words[i].isMark('(')) ++depth;
        if (line.words[i].isMark(')')) --depth;
        if (line.words[i].isMark(',') && depth == 0) found.push_back(i);
    }
    return found;
}

enum class Needs { Nothing, Value, Name, File };

struct Command {
    std::string_view word;
    Needs needs;
};

constexpr auto commands = std::to_array<Command>({
    {"dAkhav", Needs::Value},
    {"lihI", Needs::Value},
    {"ghe", Needs::Name},
    {"vAch", Needs::Name},
    {"ughaD", Needs::File},
    {"korA", Needs::Nothing},
    {"thAMb", Needs::Nothing},
});

void checkCommand(const Line& line, std::size_t number, std::size_t start, Report& report) {
    const Word& word = line.words[start];
    const auto* command =
        std::find_if(commands.begin(), commands.end(), [&](const Command& one) { return word.is(one.word); });
    if (command == commands.end()) return;
    const Rest rest = restOf(line, start);
    const bool none = rest.from == rest.to;
    const WordNumbers parted = commas(line, rest);
    const StyledText name = shown(command->word);
    const bool isValue = command->needs == Needs::Value;
    if (command->needs == Needs::File && parted.size() != 1)
        return report.add(number, word, sentence(texts::openFile, {name}));
    if (command->needs == Needs::File) return;
    if (command->needs == Needs::Nothing) {
        if (none) return;
        const Columns extra{word.roman.to, line.words[rest.to - 1].roman.to};
        return report.add(number, line.words[rest.from], sentence(texts::needsNothing, {name}),
                          {{number + 1, extra, "", false}});
    }
    if (none) return report.add(number, word, sentence(isValue ? texts::noValue : texts::noName, {name}));
    if (!isValue && line.words[rest.from].kind != Word::Kind::Name)
        return report.add(number, line.words[rest.from], sentence(texts::noName, {name}));
    if (parted.empty()) return;
    std::vector<Correction> corrections;
    if (isValue && parted.size() == 1) corrections.push_back({number + 1, line.words[parted[0]].roman, " &", true});
    report.add(number, line.words[parted[0]],
               sentence(isValue ? texts::severalValues : texts::severalNames, {name, latin("&")}),
               std::move(corrections));
}

bool isOperand(const Word& word) {
    return word.kind == Word::Kind::Name || word.kind == Word::Kind::Number || word.kind == Word::Kind::Literal;
}

void checkDivision(const Line& line, std::size_t number, Report& report) {
    for (std::size_t i = 0; i + 1 < line.words.size(); ++i) {
        const Word& zero = line.words[i + 1];
        if (!(line.words[i].is("bhAgile") || line.words[i].isMark('/')) || zero.glyphs != "0") continue;
        if (i + 2 < line.words.size() && line.words[i + 2].isMark('.')) continue;
        return report.add(number, zero, sentence(texts::byZero));
    }
}

void checkArguments(const Program& program, std::size_t number, Report& report) {
    const Line& line = program.line(number);
    if (line.statement.role == Role::FunctionHead) return;
    for (std::size_t i = 0; i + 1 < line.words.size(); ++i) {
        const NameUse* use = line.words[i].kind == Word::Kind::Name ? program.use(line.words[i].glyphs) : nullptr;
        if (use == nullptr || (use->function == mainProgram && !use->fromLibrary) || !line.words[i + 1].isMark('('))
            continue;
        std::size_t end = i + 2;
        for (int depth = 1; end < line.words.size(); ++end) {
            if (line.words[end].isMark('(')) ++depth;
            if (line.words[end].isMark(')') && --depth == 0) break;
        }
        if (end == line.words.size()) return;
        const std::size_t given = end == i + 2 ? 0 : commas(line, {i + 2, end}).size() + 1;
        if (given == use->parameters) continue;
        return report.add(number, line.words[i],
                          sentence(texts::argumentCount,
                                   {shown(line.romanOf(line.words[i])), digits(use->parameters), digits(given)}));
    }
}

// How many brackets are open at the end; negative: the first that closes too much is told.
int openBrackets(const Line& line, const Word*& place) {
    int depth = 0;
    for (const Word& word : line.words) {
        if (word.isMark('(')) {
            ++depth;
            place = &word;
        }
        if (word.isMark(')') && --depth < 0) {
            place = &word;
            return -1;
        }
    }
    return depth;
}

bool endsOperand(const Line& line, std::size_t i) {
    return isOperand(line.words[i]) || line.words[i].isMark(')');
}

// Two values with nothing between them.
const Word* findTouching(const Line& line) {
    for (std::size_t i = 1; i < line.words.size(); ++i) {
        const bool afterStart =
            std::find(line.statement.starts.begin(), line.statement.starts.end(), i - 1) != line.statement.starts.end();
        if (!afterStart && endsOperand(line, i - 1) && isOperand(line.words[i])) return &line.words[i];
    }
    return nullptr;
}

bool isOperator(const Word& word) {
    for (const char* name : {"adhik", "vajA", "guNile", "bhAgile", "barobar", "lahAn", "moThA", "ANi", "kiMvA"})
        if (word.is(name)) return true;
    return word.kind == Word::Kind::Mark && std::string_view("+-*/<>=&").find(word.glyphs[0]) != std::string_view::npos;
}

bool beginsOperand(const Word& word) {
    return isOperand(word) || word.isMark('(') || word.isMark('-') || word.isMark('+') || word.isMark('.') ||
           word.is("nAhI") || word.is("aMkik") || word.is("shAbdik") || word.is("raMg") || word.is("ruMdI") ||
           word.is("uMchI") || word.is("lAMbI") || word.is("phAilaMt") || word.is("vajA") || word.is("adhik");
}

// An operator without a value after it or before.
const Word* findLonely(const Line& line) {
    for (std::size_t i = 0; i < line.words.size(); ++i) {
        if (!isOperator(line.words[i])) continue;
        const bool hasRight = i + 1 < line.words.size() && beginsOperand(line.words[i + 1]);
        if (!hasRight) return &line.words[i];
    }
    return nullptr;
}

void checkSyntax(const Program& program, std::size_t number, Report& report) {
    const Line& line = program.meant(number);
    if (line.words.empty()) return;
    const Word* bracket = nullptr;
    const int open = openBrackets(line, bracket);
    if (open != 0) {
        std::vector<Correction> corrections;
        if (open == 1 && line.words.back().is("tar"))
            corrections.push_back(insertAt(number, (line.words.end() - 2)->roman.to, ")", false));
        else if (open == 1)
            corrections.push_back(insertAt(number, line.words.back().roman.to, ")", false));
        else if (open < 0)
            corrections.push_back({number + 1, bracket->roman, "", false});
        const auto count = static_cast<std::size_t>(open > 0 ? open : 1);
        return report.add(number, *bracket,
                          sentence(open > 0 ? texts::bracketsMissing : texts::bracketsLeft, {digits(count)}),
                          std::move(corrections));
    }
    const int error = syntaxError(line);
    if (error == 0) return;
    if (const Word* lonely = findLonely(line))
        return report.add(
            number, *lonely,
            sentence(texts::nothingBehind,
                     {StyledText(line.program.view().substr(lonely->program.from, lonely->glyphs.size()))}));
    if (const Word* touching = findTouching(line))
        return report.add(number, *touching,
                          sentence(texts::nothingBetween, {shown(line.romanOf(*touching)), latin("&")}),
                          {insertAt(number, touching->roman.from, "& ", false)});
    StyledText text = messageText(error);
    if (text.empty()) text = messageText(1002);
    report.add(number, line.romanOfAll(), line.programOf(0, line.words.size() - 1), std::move(text));
}

}  // namespace

void find::wrongValues(const Reading& reading, Report& report) {
    for (std::size_t i = 0; i < reading.program.lines().size(); ++i) {
        const Line& line = reading.program.meant(i);
        for (const std::size_t start : line.statement.starts)
            if (!report.hasError(i)) checkCommand(line, i, start, report);
        if (!report.hasError(i)) checkDivision(line, i, report);
        if (!report.hasError(i)) checkArguments(reading.program, i, report);
    }
}

void find::syntaxErrors(const Reading& reading, Report& report) {
    for (std::size_t i = 0; i < reading.program.lines().size(); ++i)
        if (!report.hasError(i)) checkSyntax(reading.program, i, report);
}

}  // namespace tolvan::guide
