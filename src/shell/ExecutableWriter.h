// Writes stand-alone executables: the runtime, followed by the program.
#pragma once

#include <optional>
#include <string>

namespace tolvan {

struct ExecutableFiles {
    std::string engine;      // the runtime, which is copied as it is
    std::string program;     // the program file
    std::string executable;  // written over if it exists; may be run by those who may read it
};

// Returns the number of the failure, in the numbering of the script language; nothing if it went well. What was written
// before a failure stays. The first line of the program file goes to `caption` as soon as it is read.
std::optional<int> writeExecutable(const ExecutableFiles& files, std::string& caption);

}  // namespace tolvan
