// The command line of tvp: its subcommands, in a table, and its exit statuses.
#pragma once

#include <string>
#include <vector>

namespace tolvan {

// Status 0: ended, or stopped by its own stop statement. 1: a script error, on standard error as "error NUMBER line
// LINE" with the script's line. 2: bad usage, or a file or output that failed, with a message in English.
int runCommandLine(const std::vector<std::string>& arguments);

}  // namespace tolvan
