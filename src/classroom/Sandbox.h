// What a process may do once a program that somebody else wrote runs in it. The language itself gives a program no
// call to the system; this is the wall behind it. It goes up in the process itself, for good, before it looks at the
// program, and needs no rights that an ordinary user lacks.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tolvan::classroom {

struct ProcessLimits {
    double seconds = 2;             // of processor time
    std::uint64_t memoryBytes = 0;  // more than the process has when it begins
    std::uint64_t largestFile = 0;  // bytes; writing more fails
};

// A wall that a system may lack.
enum class Wall : std::uint8_t {
    Files,        // no file but those of one folder (Landlock)
    SystemCalls,  // no processes, sockets and the like (seccomp)
};

// Those that this system lacks.
std::vector<Wall> missingWalls();

// When the seconds are over, a signal comes, and again every 0.2 seconds; some two seconds later, the end.
void limitProcess(const ProcessLimits& limits);

// From now on that signal makes isTimeOver() true, and ends the process only when it comes for the third time.
void watchTime();
bool isTimeOver();

// Whether a process that this signal ended was ended for its time.
bool isSignalOfTime(int signal);

// From now on, of all files only those in `folder` and below can be opened; no processes are started, no other process
// is reached, no sockets opened.
void confineProcess(const std::string& folder);

}  // namespace tolvan::classroom
