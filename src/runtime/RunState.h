// What the windows share about the program that is run; one for the whole process, owned by its start-up.
#pragma once

#include <cstdint>
#include <string>

namespace tolvan {

struct RunState {
    // The module that the next run loads; the run takes it and leaves nothing.
    std::string CompiledScript;
    // First line of the program file, in Roman letters; may be empty.
    std::string ProgramCaption;
    // True from the start of a run until the program ends or is stopped. Clearing it is the one way to stop a program:
    // it ends at its next poll.
    bool IsRunning = false;
    // 0-based line of the program in which the last run failed or was stopped; see errorLineOf for what it is worth.
    std::int32_t ErrorLine = 0;
};

}  // namespace tolvan
