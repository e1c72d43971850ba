// Turns the Devanagari program, line by line and word by word, into one VBScript module whose entry is "Sub Main()".
#pragma once

#include "platform/richtext/StyledText.h"
#include "translator/ModuleLines.h"
#include "translator/VariableTable.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tolvan {

struct CompileProgress {
    std::size_t lines;       // done so far, empty ones included
    std::size_t characters;  // of the whole program, with the one blank that is added at its end
};

// Any text at all is translated, in time that grows with its length; what is no program fails when the script is
// loaded or run. The names of variables are kept from line to line until the next `Compile`.
class Translator {
  public:
    using Progress = std::function<void(const CompileProgress&)>;

    // The module of a program: lines are separated by CR LF in both. Every statement has a line of its own, after a
    // line that polls the console, so that a running program can be stopped; lines that are empty or blank give
    // nothing. The main program comes first, then the functions, the first of which ends it. `progress` is called after
    // each line.
    std::string Compile(StyledView program, const Progress& progress = {});
    // Where the lines of that module came from, until the next `Compile`.
    const ModuleLines& moduleLines() const { return moduleLines_; }

    // One line; a word counts only if a separator follows it. Blanks at both ends are kept.
    std::string TranslateLine(StyledView line);

    // Of the program that was compiled last: the place in its line of what stands at a place of the module's line, both
    // from 0. Nothing where that is no word of the program's.
    struct Columns {
        std::size_t from = 0;
        std::size_t to = 0;  // the first one behind
    };
    std::optional<Columns> placeInProgram(StyledView program, int moduleLine, Columns inModule);

    // One word: a keyword, a number, an operator, a text between quotes, or a name. A single character is an operator
    // in the Latin font only; in the other one it is a letter.
    std::string TranslateToken(StyledView word);

    const std::string& MapIdentifier(std::string_view name) { return variables_.MapIdentifier(name); }
    std::string GetNextVariable() { return variables_.GetNextVariable(); }
    // The names that were met since the last `Compile` began.
    const VariableTable& variables() const { return variables_; }

  private:
    class ModuleBuilder;

    void allowArguments(std::size_t characters);
    void chargeArgument(StyledText& argument);
    struct Piece {
        Columns script;
        Columns program;
    };
    void translate(const StyledText& workingLine, std::string& script);
    void scan(StyledView line, std::ptrdiff_t start, std::string& script);
    void note(std::ptrdiff_t start, std::size_t size, std::size_t scriptStart, const std::string& script);
    void appendStatement(StyledView line, ModuleBuilder& module);

    VariableTable variables_;
    ModuleLines moduleLines_;
    std::vector<Piece>* pieces_ = nullptr;  // are noted there
    std::size_t argumentsLeft_ = 0;         // characters of arguments that may still be cut out
    StyledText workingLine_;  // of the line that is compiled; a member so that its memory is reused, like the next:
    std::string statement_;   // its script
};

}  // namespace tolvan
