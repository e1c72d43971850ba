// Blocks without their end, ends without their opening, and sentences without a word that they need.

#include "guide/Checks.h"
#include "guide/Texts.h"
#include "platform/script/syntax/Parser.h"

#include <algorithm>
#include <array>

namespace tolvan::guide {
namespace {

std::string endOf(const Line& opener) {
    switch (opener.statement.role) {
        case Role::For: {
            const auto& sets = opener.statement.sets;
            return "puDhachA" + (sets.empty() ? "" : " " + std::string(opener.romanOf(opener.words[sets[0]])));
        }
        case Role::While:
            return "kar";
        case Role::FunctionHead:
            return "upaprAyojan saMpav";
        default:
            return "saMpav jar";
    }
}

std::string_view openingWord(Role role) {
    switch (role) {
        case Role::For:
        case Role::Next:
            return "sAThI";
        case Role::While:
        case Role::Wend:
            return "jovar";
        case Role::FunctionHead:
        case Role::FunctionEnd:
            return "upaprAyojan";
        default:
            return "jar";
    }
}

// The word that is, or is meant for, this one of the language; else the first.
const Word& wordOf(const Program& program, std::size_t number, std::string_view languageWord) {
    const std::vector<Word>& typed = program.line(number).words;
    const std::vector<Word>& meant = program.meant(number).words;
    const auto found =
        std::find_if(meant.begin(), meant.end(), [&](const Word& word) { return word.is(languageWord); });
    const auto index = static_cast<std::size_t>(found - meant.begin());
    return typed[index < typed.size() ? index : 0];
}

bool isElse(const Line& line) {
    return line.statement.role == Role::Else || line.statement.role == Role::ElseIf;
}

// The line in front of which the end of a block is best put: where the lines stop being indented, if they are, else
// where it is needed at the latest.
std::size_t placeOfEnd(const Program& program, const BlockFault& fault) {
    const std::size_t level = program.line(fault.line).indentation();
    std::size_t next = fault.line + 1;
    const auto isEmpty = [&](std::size_t line) { return program.line(line).words.empty(); };
    while (next < fault.limit && isEmpty(next)) ++next;
    std::size_t place = fault.limit;
    if (next < fault.limit && program.line(next).indentation() > level)
        for (place = next; place < fault.limit; ++place)
            if (!isEmpty(place) && program.line(place).indentation() <= level && !isElse(program.line(place))) break;
    while (place > fault.line + 1 && isEmpty(place - 1)) --place;
    return place;
}

// With the empty lines in which its next line may be typed.
std::size_t lastLineOf(const Program& program, const BlockFault& fault) {
    std::size_t next = placeOfEnd(program, fault);
    while (next < fault.limit && program.line(next).words.empty()) ++next;
    return next - 1;
}

Correction putEnd(const Program& program, const BlockFault& fault) {
    const std::size_t before = placeOfEnd(program, fault) - 1;
    const Line& opener = program.line(fault.line);
    return insertAt(before, program.line(before).roman.size(),
                    "\r\n" + std::string(opener.indentation(), ' ') + endOf(program.meant(fault.line)), false);
}

// A sentence, by the words that it needs; of those separated by '/' one will do.
struct Sentence {
    std::string_view itsOwn;  // words of which one makes the line such a sentence
    std::array<std::string_view, 5> needed;
};

constexpr auto drawings = std::to_array<Sentence>({
    {"vartuL", {"pAsun", "trijyAche/trijyA", "vartuL", "kADh"}},
    {"Ayat", {"paryaMt", "Ayat", "kADh"}},
    {"regh/Akh", {"paryaMt", "regh", "Akh"}},
    {"biMdU", {"var", "biMdU", "kADh"}},
    {"trijyAche/trijyA", {"pAsun", "trijyAche/trijyA", "vartuL", "kADh"}},
});

const Word* findOneOf(const Line& line, std::string_view words) {
    for (std::size_t start = 0; start < words.size();) {
        const std::size_t end = std::min(words.find('/', start), words.size());
        if (const Word* word = line.find(words.substr(start, end - start))) return word;
        start = end + 1;
    }
    return nullptr;
}

bool isAssignment(const Line& line) {
    return line.words.size() > 1 && line.words[1].isEqualSign();
}

void missingIn(const Line& line, std::size_t number, const Sentence& sentenceForm, Report& report) {
    for (std::size_t i = 0; i < sentenceForm.needed.size(); ++i) {
        const std::string_view word = sentenceForm.needed[i];
        if (word.empty() || findOneOf(line, word) != nullptr) continue;
        const std::string_view first = word.substr(0, word.find('/'));
        const Word* following = nullptr;  // the next needed word that is there
        for (std::size_t j = i + 1; j < sentenceForm.needed.size() && following == nullptr; ++j)
            if (!sentenceForm.needed[j].empty()) following = findOneOf(line, sentenceForm.needed[j]);
        std::vector<Correction> corrections;
        if (following != nullptr && (following->is("kADh") || following->is("Akh")))
            corrections.push_back(insertAt(number, following->roman.from, std::string(first) + " ", true));
        else if (following == nullptr)
            corrections.push_back(insertAt(number, line.words.back().roman.to, " " + std::string(first), true));
        const Word& place = following != nullptr ? *following : line.words.back();
        return report.add(number, place, sentence(texts::missingWord, {shown(first)}), std::move(corrections));
    }
    // In front of a colour the radius needs its second word.
    const Word* radius = line.find("trijyA");
    if (radius != nullptr && line.find("raMgAche") != nullptr && line.find("Asalele") == nullptr)
        report.add(number, *radius, sentence(texts::missingWord, {shown("Asalele")}),
                   {insertAt(number, radius->roman.to, " Asalele", true)});
}

void missingInDrawing(const Line& line, std::size_t number, Report& report) {
    if (isAssignment(line)) return;
    for (const Sentence& drawing : drawings)
        if (findOneOf(line, drawing.itsOwn) != nullptr) return missingIn(line, number, drawing, report);
}

void missingInLoop(const Line& line, std::size_t number, Report& report) {
    const Word* loop = line.find("sAThI");
    const Word* to = line.find("te");
    if (loop == nullptr) {
        const bool hasName = line.words.size() > 1 && line.words[0].kind == Word::Kind::Name;
        std::vector<Correction> corrections;
        if (hasName) corrections.push_back(insertAt(number, line.words[0].roman.to, " sAThI", true));
        return report.add(number, line.words[0], sentence(texts::missingWord, {shown("sAThI")}), corrections);
    }
    if (to == nullptr) {
        std::vector<Correction> corrections;
        const auto values = std::count_if(loop, &line.words.back() + 1,
                                          [](const Word& word) { return word.kind != Word::Kind::Language; });
        if (values == 2 && loop + 2 <= &line.words.back())
            corrections.push_back(insertAt(number, loop[2].roman.from, "te ", true));
        return report.add(number, *loop, sentence(texts::missingWord, {shown("te")}), corrections);
    }
    if (loop == &line.words[0]) report.add(number, *loop, sentence(texts::loopName));
}

void missingInCondition(const Line& line, std::size_t number, Report& report) {
    if (line.find("tar") != nullptr) return;
    report.add(number, line.words.back(), sentence(texts::missingWord, {shown("tar")}),
               {insertAt(number, line.words.back().roman.to, " tar", true)});
}

}  // namespace

void find::unclosed(const Reading& reading, Report& report) {
    for (const BlockFault& fault : reading.blockFaults) {
        if (fault.kind != BlockFault::Kind::Unclosed) continue;
        const Line& line = reading.program.meant(fault.line);
        // A condition whose other word is missing may have been meant for one line.
        if (line.statement.role == Role::If && line.find("tar") == nullptr) continue;
        const std::string_view word = openingWord(line.statement.role);
        report.add(fault.line, wordOf(reading.program, fault.line, word),
                   sentence(texts::unclosed, {shown(word), shown(endOf(line))}), {putEnd(reading.program, fault)});
        report.setBlock(fault.line, lastLineOf(reading.program, fault));
    }
}

void find::unopened(const Reading& reading, Report& report) {
    for (const BlockFault& fault : reading.blockFaults) {
        if (fault.kind != BlockFault::Kind::Unopened) continue;
        const Line& line = reading.program.line(fault.line);
        const Role role = reading.program.meant(fault.line).statement.role;
        const Columns whole = line.romanOfAll();
        const bool ends = role == Role::EndIf || role == Role::FunctionEnd;
        const Columns place = ends ? whole : line.words[0].roman;
        report.add(fault.line, place, line.words[0].program,
                   sentence(texts::unopened, {shown(line.slice(place)), shown(openingWord(role))}));
    }
}

void find::wrongEnds(const Reading& reading, Report& report) {
    for (const BlockFault& fault : reading.blockFaults) {
        if (fault.kind != BlockFault::Kind::WrongEnd) continue;
        const Line& line = reading.program.line(fault.line);
        const Columns whole = line.romanOfAll();
        const std::string end = endOf(reading.program.meant(fault.opener));
        report.add(fault.line, whole, line.words[0].program,
                   sentence(texts::wrongEnd, {shown(line.slice(whole)), shown(end)}),
                   {{fault.line + 1, whole, end, true}});
        report.setBlock(fault.opener, fault.line);
    }
    for (std::size_t i = 0; i < reading.program.lines().size(); ++i) {
        const Line& line = reading.program.meant(i);
        if (!line.statement.wrongEnd || report.hasError(i)) continue;
        const Columns whole = line.romanOfAll();
        const std::optional<std::size_t> opener = openerAround(reading.program, i);
        const std::string end = opener ? endOf(reading.program.meant(*opener)) : "kar";
        report.add(i, whole, line.words[0].program, sentence(texts::wrongEnd, {shown(line.slice(whole)), shown(end)}),
                   {{i + 1, whole, end, true}});
    }
}

void find::tooDeep(const Reading& reading, Report& report) {
    // The module, the procedure and the poll before each statement are levels, too.
    constexpr std::size_t tooDeepNesting = script::Parser::deepestNesting - 2;
    std::size_t depth = 0;
    for (std::size_t i = 0; i < reading.program.lines().size(); ++i) {
        const Line& line = reading.program.meant(i);
        switch (line.statement.role) {
            case Role::FunctionHead:
                depth = 0;
                break;
            case Role::If:
            case Role::For:
            case Role::While:
                if (++depth == tooDeepNesting)
                    report.add(i, reading.program.line(i).words[0], sentence(texts::tooDeep));
                break;
            case Role::EndIf:
            case Role::Next:
            case Role::Wend:
                if (depth > 0) --depth;
                break;
            default:
                break;
        }
    }
}

void find::missingWords(const Reading& reading, Report& report) {
    for (std::size_t i = 0; i < reading.program.lines().size(); ++i) {
        const Line& line = reading.program.meant(i);
        if (report.hasError(i) || line.words.empty()) continue;
        const Role role = line.statement.role;
        if (role == Role::If || role == Role::ElseIf) missingInCondition(line, i, report);
        if (role == Role::For) missingInLoop(line, i, report);
        if (role == Role::Plain) missingInDrawing(line, i, report);
        if (role == Role::End) {
            const std::optional<std::size_t> opener = openerAround(reading.program, i);
            std::vector<Correction> corrections;
            const Columns whole = line.romanOfAll();
            if (opener && line.words.size() == 1)
                corrections.push_back({i + 1, whole, endOf(reading.program.meant(*opener)), true});
            report.add(i, whole, line.words[0].program, sentence(texts::endAlone), corrections);
        }
    }
}

}  // namespace tolvan::guide
