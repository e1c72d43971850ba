// Runs a module of script against a console: what the window and the text console do alike.
#pragma once

#include "platform/script/Executor.h"
#include "runtime/host/ConsoleObject.h"

#include <string_view>

namespace tolvan {

// Loads the module, with the console's members as names of their own beside "ParentForm", and runs its Main, if it has
// one. Data files of an earlier run are closed before, and the engine is empty afterwards.
//
// The result has number 0 if the program came to its end. Its line is one of the program: what failed in a function of
// the library, after the program's own lines, failed in the line that called it. Whether a program with an error was
// stopped (its poll raises an error then) is the console's knowledge.
script::ErrorReport runModule(script::Executor& executor, ConsoleObject& console, std::string_view module);

}  // namespace tolvan
