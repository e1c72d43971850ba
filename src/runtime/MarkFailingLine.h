// Marks a line of the program in the editor, and the formula for its number.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tolvan {

class ProgramMarker;

// For a module whose ModuleLines are not known: an estimate of the line of the program, counted from 0, from the line
// of the module. A module has one line before the program and two for each line of it, the poll and the statement. So
// the poll of line k (from 1) gives k - 1, and its statement k - 0.5, rounded half to even. Empty lines of the program
// have no lines in the module, so the result is too small by as many as come before.
std::int32_t errorLineOf(int scriptLine);

struct LineSpan {
    std::size_t start = 0;   // 0-based
    std::size_t length = 0;  // with the carriage return after the line
    friend bool operator==(const LineSpan&, const LineSpan&) = default;
};
// Where a line, counted from 0, stands in a text whose lines are separated by CR LF. Below 0 it is the first line. In a
// text with too few lines counting wraps around to the first line; each time, the end counts as a line as long as the
// whole text.
LineSpan spanOfLine(std::string_view text, std::int32_t line);

// Selects that line of the program in both texts of the editor; counted as spanOfLine does.
void markFailingLine(ProgramMarker& editor, std::int32_t line);

}  // namespace tolvan
