// Puts the library's functions that a program uses after the program's module.
#pragma once

#include "platform/richtext/StyledText.h"
#include "translator/ModuleLines.h"

#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace tolvan {

class VariableTable;

// The module, as the translator made it together with the table of its names, followed by one script function for each
// library word that the program uses and does not make its own: a word that it sets, declares, reads into, or gives to
// a function or a parameter keeps the program's meaning. The lines of the module stay where they are. A module that
// cannot be parsed comes back as it is.
std::string addLibrary(std::string module, const VariableTable& names);

// How many lines of such a module are the program's own: those before the first of the library. Of a module without
// library functions, all.
int ownLines(std::string_view module);

// What the script names of a program stand for, in font codes: where one stands for several words, these separated
// by blanks.
using ScriptWords = std::map<std::string, std::string, std::less<>>;
ScriptWords scriptWords(const VariableTable& names);

struct RunnableProgram {
    std::string module;  // with the library's functions
    ModuleLines lines;   // of the program's own part
    ScriptWords words = {};

    // What one script name stands for; empty for a name that is not the program's.
    std::string wordOf(std::string_view scriptName) const;
    // The function that a line of the program (from 1) belongs to, its head and its end with it; empty: the main
    // program.
    std::string functionAround(int programLine) const;
};
RunnableProgram runnableProgram(StyledView program);

// The module alone.
std::string runnableModule(StyledView program);

}  // namespace tolvan
