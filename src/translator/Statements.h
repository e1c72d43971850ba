// The statement forms: lines that are recognised by marker words and taken apart around them, instead of being
// translated word by word.
#pragma once

#include "platform/richtext/StyledText.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace tolvan {

// One piece of a translated statement; the pieces follow one another in the script.
struct StatementPart {
    enum class Kind {
        Script,    // `script` as it stands
        Variable,  // the script name of the variable `text`
        Line,      // the translation of the working line `text`
    };
    Kind kind = Kind::Script;
    std::string_view script;  // a literal
    StyledText text;
    // Of a part that is cut out of the line: where its text begins there, from 0. A working line's added blank is the
    // character before that.
    std::ptrdiff_t start = 0;
};

// What a line is taken for by the marker words that it holds; General: none of the forms.
enum class StatementKind : std::uint8_t { General, Comment, CountedLoop, Line, Box, Point, Circle, FunctionEnd };

// Of the text of a working line.
StatementKind statementKind(std::string_view line);

// Whether a line begins a function: it names one and holds no end, wherever the words stand.
bool isFunctionHead(std::string_view line);

// Lines are translated with a blank before them. A statement, and an argument cut out of one, gets a blank after it
// too: a word counts only if a separator follows it.
StyledText workingLine(StyledView line);
StyledText workingStatement(StyledView line);
void setWorkingStatement(StyledView line, StyledText& text);

// Takes the working line `line` apart if it has one of the forms; otherwise `parts` stays empty. The first form of
// which the line holds all marker words decides, wherever the words stand, inside a literal too. A piece that missing
// or misplaced markers leave without text is an empty one.
void cutStatement(const StyledText& line, std::vector<StatementPart>& parts);

}  // namespace tolvan
