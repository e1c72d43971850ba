// The program text of a Roman text, line by line: after a change only the lines are made again that read differently
// now. Joined, they are always the ProgramText of the whole.
//
// A "#" span may reach over lines, and a "#" without its partner is dropped, so that a single "#" can change every line
// behind it.
#pragma once

#include "platform/richtext/StyledText.h"

#include <cstddef>
#include <string>
#include <vector>

namespace tolvan {

struct ProgramLine {
    StyledText text;                  // without its line end
    Font lineEnd = Font::Devanagari;  // of the CR LF behind it, if it is not the last line
};

// These lines, one or more, stand in the place of `removed` lines, one or more, from line `first` (from 0).
struct ProgramLinesUpdate {
    std::size_t first = 0;
    std::size_t removed = 0;
    std::vector<ProgramLine> lines;
};

class ProgramLines {
  public:
    // An empty text: one line, which is empty.
    ProgramLines() : lines_(1) {}

    std::size_t count() const { return lines_.size(); }
    const std::string& roman(std::size_t line) const { return lines_[line].roman; }

    // Puts Roman lines, which hold no CR LF, in the place of others; one at least of either. The updates bring the
    // program text up to date if they are made in their order.
    std::vector<ProgramLinesUpdate> replace(std::size_t first, std::size_t removed, std::vector<std::string> roman);

    // Whether a user who types in column `column` (from 0) of a line types into a "#" span. A span that nothing closes
    // yet reaches to the end of its line here.
    bool isInSpan(std::size_t line, std::size_t column) const;

    // Where a place of a line's Roman text is in its program text, and the other way round; columns from 0. Letters
    // that become one glyph together have no place between them: the answer is near then. A place at the start of a "#"
    // span is outside it. The longer the line, the longer this takes.
    std::size_t programColumn(std::size_t line, std::size_t romanColumn) const;
    std::size_t romanColumn(std::size_t line, std::size_t programColumn) const;

  private:
    // All on which the program line depends, beside its Roman text.
    struct State {
        bool startsInSpan = false;
        bool dropsLastMark = false;  // it has no partner
        bool isLast = false;         // of a text that is not empty: two blanks stand behind it
        friend bool operator==(const State&, const State&) = default;
    };
    struct Line {
        std::string roman;
        std::size_t marks = 0;
        State state;
        bool isNew = true;
    };

    static bool endsInSpan(const Line& line);
    static ProgramLine program(const Line& line);
    std::size_t lineWithoutPartner() const;
    std::vector<std::size_t> updateStates();

    std::vector<Line> lines_;
};

}  // namespace tolvan
