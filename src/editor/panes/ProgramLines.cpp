#include "editor/panes/ProgramLines.h"

#include "translator/ProgramText.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace tolvan {
namespace {

constexpr char mark = '#';

std::size_t marksIn(std::string_view roman) {
    return static_cast<std::size_t>(std::count(roman.begin(), roman.end(), mark));
}

}  // namespace

bool ProgramLines::endsInSpan(const Line& line) {
    const std::size_t marks = line.marks - (line.state.dropsLastMark ? 1 : 0);
    return line.state.startsInSpan != (marks % 2 == 1);
}

// A line on which every "#" span is both opened and closed can be transliterated alone.
ProgramLine ProgramLines::program(const Line& line) {
    std::string alone;
    alone.reserve(line.roman.size() + 4);
    if (line.state.startsInSpan) alone += mark;
    alone += line.roman;
    if (line.state.dropsLastMark) alone.erase(alone.rfind(mark), 1);
    if (endsInSpan(line)) alone += mark;
    if (line.state.isLast) alone += "  ";
    return {Transliterate(alone), endsInSpan(line) ? Font::Latin : Font::Devanagari};
}

// The line of the "#" that is never closed; count() if there is none.
std::size_t ProgramLines::lineWithoutPartner() const {
    std::size_t marks = 0;
    std::size_t last = count();
    for (std::size_t i = 0; i < count(); ++i) {
        if (lines_[i].marks > 0) last = i;
        marks += lines_[i].marks;
    }
    return marks % 2 == 1 ? last : count();
}

// The lines to be made again, in ascending order.
std::vector<std::size_t> ProgramLines::updateStates() {
    const std::size_t withoutPartner = lineWithoutPartner();
    const bool isEmpty = count() == 1 && lines_[0].roman.empty();
    std::vector<std::size_t> changed;
    bool inSpan = false;
    for (std::size_t i = 0; i < count(); ++i) {
        Line& line = lines_[i];
        const State state{inSpan, i == withoutPartner, i + 1 == count() && !isEmpty};
        if (std::exchange(line.isNew, false) || line.state != state) changed.push_back(i);
        line.state = state;
        inSpan = endsInSpan(line);
    }
    return changed;
}

std::vector<ProgramLinesUpdate> ProgramLines::replace(std::size_t first, std::size_t removed,
                                                      std::vector<std::string> roman) {
    std::vector<Line> lines;
    lines.reserve(roman.size());
    for (std::string& text : roman) {
        const std::size_t marks = marksIn(text);
        lines.push_back({std::move(text), marks, {}, true});
    }
    const auto start = lines_.begin() + static_cast<std::ptrdiff_t>(first);
    const std::size_t kept = std::min(removed, lines.size());
    std::move(lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(kept), start);
    if (removed > kept)
        lines_.erase(start + static_cast<std::ptrdiff_t>(kept), start + static_cast<std::ptrdiff_t>(removed));
    else
        lines_.insert(start + static_cast<std::ptrdiff_t>(kept),
                      std::make_move_iterator(lines.begin() + static_cast<std::ptrdiff_t>(kept)),
                      std::make_move_iterator(lines.end()));

    std::vector<ProgramLinesUpdate> updates{{first, removed, {}}};
    const std::size_t end = first + lines.size();
    for (const std::size_t i : updateStates()) {
        const bool replaced = i >= first && i < end;
        ProgramLinesUpdate* update = replaced ? &updates.front() : &updates.back();
        if (!replaced && (updates.size() == 1 || i != update->first + update->lines.size()))
            update = &updates.emplace_back(ProgramLinesUpdate{i, 0, {}});
        update->lines.push_back(program(lines_[i]));
        if (!replaced) ++update->removed;
    }
    return updates;
}

// The column is the length of the program text of what stands before the place.
std::size_t ProgramLines::programColumn(std::size_t line, std::size_t romanColumn) const {
    const Line& whole = lines_[line];
    Line before{whole.roman.substr(0, romanColumn), 0, whole.state, true};
    before.marks = marksIn(before.roman);
    before.state.dropsLastMark = whole.state.dropsLastMark && before.marks == whole.marks;
    before.state.isLast = false;
    return program(before).text.size();
}

std::size_t ProgramLines::romanColumn(std::size_t line, std::size_t programColumn) const {
    const std::string& roman = lines_[line].roman;
    std::size_t column = 0;
    std::size_t end = roman.size() + 1;
    while (end - column > 1) {
        const std::size_t middle = column + (end - column) / 2;
        (this->programColumn(line, middle) <= programColumn ? column : end) = middle;
    }
    const bool isAfterOpeningMark = column > 0 && roman[column - 1] == mark && isInSpan(line, column);
    return isAfterOpeningMark ? column - 1 : column;
}

bool ProgramLines::isInSpan(std::size_t line, std::size_t column) const {
    const Line& whole = lines_[line];
    return whole.state.startsInSpan != (marksIn(std::string_view(whole.roman).substr(0, column)) % 2 == 1);
}

}  // namespace tolvan
