// The program that is running, as the system sees it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tolvan {

// The path of its file, which can be read while it runs.
std::string ownProgramFile();

// The words behind its name on the command line, in UTF-8 on Windows. For main(), with its arguments.
std::vector<std::string> commandLineWords(int count, char** arguments);

// The folder for what can be made anew, of this user; empty where the system names none. It may be missing.
std::string userCacheFolder();

// Makes standard input, output and error carry bytes as they are, and a terminal show UTF-8. At the start of main().
void prepareStandardStreams();

// Whether somebody looks at what is written to this descriptor.
bool isTerminal(int descriptor);

// For a program with windows: writes a line, lines in it separated by CR LF, to the terminal that started it, or to
// where its output was sent. False where there is neither: whoever started it from a desktop sees windows only, as on
// Linux in any case.
bool tellTerminal(std::string_view line);

}  // namespace tolvan
