// Transliterates the Roman text to the program text line by line. After a change only lines whose result can differ are
// transliterated again; the lines together always equal the ProgramText of the whole Roman text.
//
// A "#" span can reach over several lines, and a "#" that is never closed is dropped. So one "#" can change every line
// after it.
#pragma once

#include "platform/richtext/StyledText.h"

#include <cstddef>
#include <string>
#include <vector>

namespace tolvan {

struct ProgramLine {
    StyledText text;                  // without its line end
    Font lineEnd = Font::Devanagari;  // of the CR LF after it, if it is not the last line
};

// Replace `removed` lines (at least one), from line `first` on (counted from 0), by these (at least one).
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

    // Replaces `removed` lines from line `first` on by other Roman lines, which hold no CR LF; at least one of each.
    // The updates, made in their order, bring the program text up to date.
    std::vector<ProgramLinesUpdate> replace(std::size_t first, std::size_t removed, std::vector<std::string> roman);

    // Whether a user who types in column `column` (from 0) of a line types into a "#" span. A span that nothing closes
    // yet reaches to the end of its line here.
    bool isInSpan(std::size_t line, std::size_t column) const;

    // The column of the program text that corresponds to a column of the line's Roman text, and the reverse; from 0.
    // For a place between letters that become one glyph the nearest column is given. The start of a "#" span is outside
    // it. The time grows with the length of the line.
    std::size_t programColumn(std::size_t line, std::size_t romanColumn) const;
    std::size_t romanColumn(std::size_t line, std::size_t programColumn) const;

  private:
    // What the program line depends on, besides its Roman text.
    struct State {
        bool startsInSpan = false;
        bool dropsLastMark = false;  // its last "#" is never closed
        bool isLast = false;         // of a text that is not empty: two blanks are appended to it
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
