// The script that a program becomes, line by line, for somebody who reads it beside the program.
#pragma once

#include "library/AddLibrary.h"

#include <string>
#include <vector>

namespace tolvan {

struct ScriptLine {
    int number = 0;       // in the module, from 1
    int programLine = 0;  // 0: none
    // In internal text form: the script's own words are Latin; a name is the word that it stands for, if that is
    // wanted.
    std::string text;
};

// With words in place of names, and without the polls and empty lines; or all lines as the engine gets them.
enum class ScriptForm : bool { ToRead, AsItIs };
std::vector<ScriptLine> scriptLines(const RunnableProgram& program, ScriptForm form);

}  // namespace tolvan
