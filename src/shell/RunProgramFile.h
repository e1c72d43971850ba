// A program file, run in a console of its own.
#pragma once

#include <QString>

namespace tolvan {

struct RunState;

// Reads the file and translates it into the compiled script of `state`. False if it cannot be read.
bool loadProgramFile(const QString& path, RunState& state);

// Opens a console and runs the compiled script; returns when the program has ended. The console deletes itself when it
// is closed; `state` must outlive it. Needs the application's event loop.
void runInConsole(RunState& state);

}  // namespace tolvan
