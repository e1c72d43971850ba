// Which line of a program each line of its script module came from. All lines are counted from 1, those of the program
// with its blank ones.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace tolvan {

class ModuleLines {
  public:
    enum class Kind : std::uint8_t {
        Frame,  // what the module has of its own: "Sub Main()", its end, empty lines
        Poll,   // asks before the statement in the next line whether the program goes on
        Statement,
        FunctionHead,
    };

    // How many lines the module has; 0: nothing is known.
    int count() const { return static_cast<int>(lines_.size()); }

    // What a line of the module is; Frame for one that it does not have.
    Kind kind(int scriptLine) const;

    // The program's line. A poll has that of its statement; the end of a block that the program forgot to end is looked
    // for in the frame, which has the last statement before it. 0 where there is none: before the first statement, and
    // for a line that the module does not have.
    int programLine(int scriptLine) const;

    // The statement or the function's head that a line of the program became; 0 for a blank line, or one that the
    // program does not have.
    int scriptLine(int programLine) const;

    // For the translator: `text` is appended to the module; each line end in it begins a line of this kind.
    void append(std::string_view text, Kind kind, int programLine);

  private:
    struct Line {
        int program;
        Kind kind;
    };
    const Line* find(int scriptLine) const;

    std::vector<Line> lines_;  // by ascending lines of the program
};

}  // namespace tolvan
