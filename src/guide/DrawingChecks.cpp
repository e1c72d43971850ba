// Drawing sentences that have all their words: brackets, endings and order.

#include "guide/Checks.h"
#include "guide/Texts.h"

#include <algorithm>

namespace tolvan::guide {
namespace {

constexpr std::string_view examplePlace = "(10, 20)";

bool isDrawing(StatementKind form) {
    return form == StatementKind::Line || form == StatementKind::Box || form == StatementKind::Point ||
           form == StatementKind::Circle;
}

std::size_t numberOf(const Line& line, std::string_view word) {
    const Word* found = line.find(word);
    return found == nullptr ? line.words.size() : static_cast<std::size_t>(found - line.words.data());
}

// "(10, 20)": one pair of brackets around two values.
bool isPlace(const Line& line, std::size_t from, std::size_t to) {
    if (to < from + 2 || !line.words[from].isMark('(') || !line.words[to - 1].isMark(')')) return false;
    int depth = 0;
    int commas = 0;
    for (std::size_t i = from; i < to; ++i) {
        if (line.words[i].isMark('(')) ++depth;
        if (line.words[i].isMark(')') && --depth == 0 && i + 1 < to) return false;
        if (line.words[i].isMark(',') && depth == 1) ++commas;
    }
    return depth == 0 && commas == 1;
}

void checkPlace(const Line& line, std::size_t number, std::size_t from, std::size_t to, Report& report) {
    if (from >= to || isPlace(line, from, to)) return;
    const Columns roman = line.romanOf(from, to - 1);
    const Columns place = line.programOf(from, to - 1);
    const auto bracket = [](const Word& word) { return word.isMark('(') || word.isMark(')'); };
    const auto begin = line.words.begin() + static_cast<std::ptrdiff_t>(from);
    const auto end = line.words.begin() + static_cast<std::ptrdiff_t>(to);
    std::string mended(line.slice(roman));
    const auto open = std::count_if(begin, end, [](const Word& word) { return word.isMark('('); });
    const auto closed = std::count_if(begin, end, bracket) - open;
    if (open <= closed && !begin->isMark('(')) mended.insert(0, "(");
    if (closed <= open && !(end - 1)->isMark(')')) mended += ")";
    std::vector<Correction> corrections;
    const bool hasComma = std::any_of(begin, end, [](const Word& word) { return word.isMark(','); });
    if (hasComma && mended != line.slice(roman)) corrections.push_back({number + 1, roman, mended, open == closed});
    report.add(number, roman, place, sentence(texts::brackets, {shown(examplePlace)}), std::move(corrections));
}

struct ColourWord {
    StatementKind form;
    std::string_view word;
};

constexpr ColourWord colourWords[] = {{StatementKind::Line, "raMgAchI"},
                                      {StatementKind::Box, "raMgAche"},
                                      {StatementKind::Circle, "raMgAche"},
                                      {StatementKind::Point, "raMgAchA"}};

std::string_view colourWordOf(StatementKind form) {
    return std::find_if(std::begin(colourWords), std::end(colourWords),
                        [&](const ColourWord& one) { return one.form == form; })
        ->word;
}

// The word "filled" between the radius or the end point and the colour is read as part of the colour.
void checkFilled(const Line& line, std::size_t number, Report& report) {
    const Word* filled = line.find("bharalele");
    const Word* colour = line.find(colourWordOf(line.statement.form));
    if (filled == nullptr || colour == nullptr || filled > colour) return;
    const Columns place{filled->roman.from, colour->roman.to};
    const std::string_view between = line.slice({filled[1].roman.from, colour->roman.to});
    report.add(number, *filled, sentence(texts::filledFirst),
               {{number + 1, place, std::string(between) + " bharalele", true}});
}

}  // namespace

void find::missingBrackets(const Reading& reading, Report& report) {
    for (std::size_t i = 0; i < reading.program.lines().size(); ++i) {
        const Line& line = reading.program.meant(i);
        if (!isDrawing(line.statement.form) || report.hasError(i)) continue;
        const std::size_t end = line.words.size();
        const std::size_t from = numberOf(line, "pAsun");
        const std::size_t to = numberOf(line, "paryaMt");
        if (line.statement.form == StatementKind::Point) {
            checkPlace(line, i, 0, numberOf(line, "var"), report);
        } else if (line.statement.form == StatementKind::Circle) {
            checkPlace(line, i, 0, from, report);
        } else if (to == end || (from != end && from > to)) {
            continue;
        } else {
            if (from != end) checkPlace(line, i, 0, from, report);
            checkPlace(line, i, from == end ? 0 : from + 1, to, report);
        }
    }
}

void find::wrongEndings(const Reading& reading, Report& report) {
    for (std::size_t i = 0; i < reading.program.lines().size(); ++i) {
        const Line& line = reading.program.meant(i);
        if (!isDrawing(line.statement.form) || report.hasError(i)) continue;
        const std::string_view right = colourWordOf(line.statement.form);
        for (const ColourWord& one : colourWords) {
            const Word* word = line.find(one.word);
            if (word == nullptr || one.word == right) continue;
            report.add(i, *word, sentence(texts::ending, {shown(one.word), shown(right)}),
                       {replaceWord(i, *word, right, true)});
            break;
        }
    }
}

void find::wrongOrder(const Reading& reading, Report& report) {
    for (std::size_t i = 0; i < reading.program.lines().size(); ++i) {
        const Line& line = reading.program.meant(i);
        if (!isDrawing(line.statement.form) || report.hasError(i)) continue;
        checkFilled(line, i, report);
        const Word* from = line.find("pAsun");
        const Word* to = line.find("paryaMt");
        if (from == nullptr || to == nullptr || from < to) continue;
        report.add(i, *from, sentence(texts::fromBehind));
    }
}

}  // namespace tolvan::guide
