// What the user asks for on the command line.
#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace tolvan {

struct CommandLine {
    enum class Problem : std::uint8_t {
        SecondFile,  // a file name after the first one, which counts
        NoSuchFile,
    };

    std::string filename;           // absolute, as the disk spells it; empty: none
    std::set<std::string> options;  // with their "-", in lower case, also those without a meaning
    std::vector<Problem> problems;  // in the order in which they were met

    bool has(const std::string& option) const { return options.contains(option); }
};

// Both absolute; where files are looked for.
struct CommandLineFolders {
    std::string current;
    std::string application;
};

// The arguments as one line. What the shell hands over as one argument stays one: with blanks in it, it is quoted.
std::string joinArguments(const std::vector<std::string>& arguments);

// Words are separated by blanks outside double quotes, and by the quotes. One that begins with "-" is an option, in any
// case; any other is a file, which is looked up as it was typed, in the current folder and in the application's.
CommandLine parseCommandLine(std::string_view arguments, const CommandLineFolders& folders);

// An absolute path with every folder and name as the disk spells them, whatever the case of its letters; empty when a
// part of it does not exist.
std::string pathSpelling(std::string_view path);

// What the user is told, in English as all of the command line.
std::string_view problemText(CommandLine::Problem problem);

// The command line explained, lines separated by CR LF.
std::string_view usageText();

}  // namespace tolvan
