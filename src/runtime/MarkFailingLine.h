// Marks a line of the program in the editor, and the formula for its number.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tolvan {

class ProgramMarker;

// For a module whose ModuleLines are not known: the line of the program, counted from 0, that a line of the module
// stands for. A module has one line before the program and two for each of its lines, the poll and the statement. So a
// program that is stopped at the poll of line k (from 1) gives the index k - 1; one that fails in its statement gives
// k - 0.5, rounded half to even. Empty lines of the program have no lines in the module and are not counted.
std::int32_t errorLineOf(int scriptLine);

struct LineSpan {
    std::size_t start = 0;   // 0-based
    std::size_t length = 0;  // with the carriage return after the line
    friend bool operator==(const LineSpan&, const LineSpan&) = default;
};
// A line, counted from 0, of a text whose lines are separated by CR LF. Below 0 it is the first line. Counting goes on
// at the start of the text where it has too few lines; the end counts as a line of its own then, of the length of the
// whole text.
LineSpan spanOfLine(std::string_view text, std::int32_t line);

// Selects that line of the program in both texts of the editor; counted as spanOfLine does.
void markFailingLine(ProgramMarker& editor, std::int32_t line);

}  // namespace tolvan
