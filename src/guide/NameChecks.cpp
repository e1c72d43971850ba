// Names: who gives them a value, and of which kind.

#include "guide/Checks.h"
#include "guide/Texts.h"
#include "platform/richtext/StyledText.h"
#include "translator/ProgramText.h"
#include "translator/Translator.h"

#include <algorithm>
#include <map>
#include <set>

namespace tolvan::guide {
namespace {

StyledText typed(const Line& line, const Word& word) {
    return shown(line.romanOf(word));
}

bool bracketFollows(const Line& line, std::size_t word) {
    return word + 1 < line.words.size() && line.words[word + 1].isMark('(');
}

// Calls `visit(line number, word number)` for each name that a line without errors reads.
template <class Visit>
void forEachRead(const Reading& reading, const Report& report, const Visit& visit) {
    for (std::size_t i = 0; i < reading.program.lines().size(); ++i)
        if (!report.hasError(i))
            for (const std::size_t word : reading.program.line(i).statement.reads) visit(i, word);
}

// What gives a name its value may be what is wrong with a line.
std::set<std::string_view> namesInErrors(const Reading& reading, const Report& report) {
    std::set<std::string_view> names;
    for (std::size_t i = 0; i < reading.program.lines().size(); ++i)
        if (report.hasError(i))
            for (const Word& word : reading.program.line(i).words)
                if (word.kind == Word::Kind::Name) names.insert(word.glyphs);
    return names;
}

bool isCompared(const Word& word) {
    return word.is("lahAn") || word.is("moThA") || word.isMark('<') || word.isMark('>');
}
bool isAdded(const Word& word) {
    return word.is("adhik") || word.isMark('+');
}

// A name that holds a text, as far as can be seen.
bool isTyped(const Program& program, const Line& line, std::size_t word, int scope) {
    if (word >= line.words.size() || line.words[word].kind != Word::Kind::Name || bracketFollows(line, word))
        return false;
    const NameUse* use = program.use(line.words[word].glyphs);
    return use != nullptr && use->setIn(scope) && use->onlyTyped && !use->maybeSet && use->function == mainProgram;
}

bool isNumber(const Line& line, std::size_t word) {
    return word < line.words.size() && line.words[word].kind == Word::Kind::Number;
}

// The typed name on one side of an operator at `sign`, if what is done to it needs a number.
std::optional<std::size_t> typedOperand(const Program& program, const Line& line, std::size_t sign, int scope) {
    const Word& word = line.words[sign];
    const bool equal = word.isEqualSign();
    if (!isCompared(word) && !isAdded(word) && !equal) return std::nullopt;
    const std::size_t left = sign - 1;
    const std::size_t right = sign + 1;
    const bool leftTyped = isTyped(program, line, left, scope);
    const bool rightTyped = isTyped(program, line, right, scope);
    const bool withNumber = (leftTyped && isNumber(line, right)) || (rightTyped && isNumber(line, left));
    if (!withNumber && (equal || !(leftTyped && rightTyped))) return std::nullopt;
    return leftTyped ? left : right;
}

bool isAssignmentSign(const Line& line, std::size_t sign) {
    const WordNumbers& sets = line.statement.sets;
    return line.words[sign].isEqualSign() && std::find(sets.begin(), sets.end(), sign - 1) != sets.end();
}

}  // namespace

void find::neverSet(const Reading& reading, Report& report) {
    std::set<std::string_view> said = namesInErrors(reading, report);
    forEachRead(reading, report, [&](std::size_t number, std::size_t index) {
        const Line& line = reading.program.line(number);
        const Word& word = line.words[index];
        const NameUse* use = reading.program.use(word.glyphs);
        const bool indexed = bracketFollows(line, index);
        const bool isStart =
            std::find(line.statement.starts.begin(), line.statement.starts.end(), index) != line.statement.starts.end();
        if (use == nullptr || (!use->isSet() && use->function == mainProgram && !use->maybeSet)) {
            if (isStart || !said.insert(word.glyphs).second) return;
            const bool called =
                indexed && std::none_of(reading.program.lines().begin(), reading.program.lines().end(),
                                        [](const LinePointer& one) { return one->statement.arrays.size(); });
            report.add(number, word,
                       sentence(!indexed ? texts::neverSet
                                : called ? texts::noFunction
                                         : texts::noArray,
                                {typed(line, word)}));
        }
    });
    for (std::size_t i = 0; i < reading.program.lines().size(); ++i) {
        const Line& line = reading.program.line(i);
        for (const std::size_t index : line.statement.sets) {
            const NameUse* use = reading.program.use(line.words[index].glyphs);
            if (report.hasError(i) || line.statement.role != Role::Plain || !bracketFollows(line, index)) continue;
            if (use == nullptr || use->array || use->maybeSet || use->function != mainProgram) continue;
            if (std::find(line.statement.arrays.begin(), line.statement.arrays.end(), index) ==
                line.statement.arrays.end())
                report.add(i, line.words[index], sentence(texts::noArray, {typed(line, line.words[index])}));
        }
    }
}

void find::onlyInMain(const Reading& reading, Report& report) {
    std::set<std::pair<int, std::string_view>> said;
    forEachRead(reading, report, [&](std::size_t number, std::size_t index) {
        const Line& line = reading.program.line(number);
        const Word& word = line.words[index];
        const NameUse* use = reading.program.use(word.glyphs);
        const int scope = reading.program.scope(number);
        if (use == nullptr || !use->isSet() || use->maybeSet || use->function != mainProgram || use->setIn(scope))
            return;
        if (!said.insert({scope, word.glyphs}).second) return;
        const bool inFunction = scope != mainProgram;
        if (inFunction && !use->setIn(mainProgram)) return;
        report.add(number, word, sentence(inFunction ? texts::onlyInMain : texts::onlyInFunction, {typed(line, word)}));
    });
}

void find::textsAsNumbers(const Reading& reading, Report& report) {
    for (std::size_t i = 0; i < reading.program.lines().size(); ++i) {
        const Line& line = reading.program.line(i);
        if (report.hasError(i)) continue;
        for (std::size_t sign = 1; sign + 1 < line.words.size(); ++sign) {
            if (isAssignmentSign(line, sign)) continue;
            const auto operand = typedOperand(reading.program, line, sign, reading.program.scope(i));
            if (!operand) continue;
            const Word& word = line.words[*operand];
            report.add(i, word, sentence(texts::textAsNumber, {typed(line, word)}),
                       {replaceWord(i, word, "aMkik(" + std::string(line.romanOf(word)) + ")", true)});
            break;
        }
    }
}

// The parameters of a function are declared with it.
void find::declaredTwice(const Reading& reading, Report& report) {
    std::set<std::pair<int, std::string_view>> declared;
    for (std::size_t i = 0; i < reading.program.lines().size(); ++i) {
        const Line& line = reading.program.line(i);
        const Statement& statement = line.statement;
        const auto isNew = [&](std::size_t name) {
            return declared.insert({reading.program.scope(i), line.words[name].glyphs}).second;
        };
        const bool isHead = statement.role == Role::FunctionHead;
        if (isHead && statement.function) isNew(*statement.function);
        for (const std::size_t name : isHead ? statement.sets : statement.arrays)
            if (!isNew(name) && !report.hasError(i))
                report.add(i, line.words[name], sentence(texts::declaredTwice, {typed(line, line.words[name])}));
    }
}

// The translator's own table says which script name a name gets.
void find::sameNames(const Reading& reading, Report& report) {
    constexpr std::size_t namesBeforeTheFirstRepeats = 50;
    std::string roman;
    std::map<std::string_view, std::pair<std::size_t, const Word*>> names;
    for (std::size_t i = 0; i < reading.program.lines().size(); ++i) {
        const Line& line = reading.program.line(i);
        for (const Word& word : line.words)
            if (word.kind == Word::Kind::Name) names.emplace(word.glyphs, std::pair(i, &word));
    }
    if (names.size() <= namesBeforeTheFirstRepeats) return;
    for (const LinePointer& line : reading.program.lines()) roman.append(line->roman).append("\r\n");
    Translator translator;
    translator.Compile(ProgramText(roman));
    std::map<std::string, const Word*> owners;
    std::map<std::size_t, std::pair<const Word*, const Word*>> pairs;
    for (const auto& [glyphs, place] : names) {
        const auto [owner, isNew] = owners.emplace(translator.MapIdentifier(glyphs), place.second);
        if (!isNew) pairs.emplace(place.first, std::pair(place.second, owner->second));
    }
    for (const auto& [line, pair] : pairs) {
        const auto name = [](const Word& word) { return StyledText(word.glyphs, Font::Devanagari); };
        report.add(line, *pair.first, sentence(texts::sameName, {name(*pair.first), name(*pair.second)}));
    }
}

}  // namespace tolvan::guide
