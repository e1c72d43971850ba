// Runs the examples that the guides show, on a text console.
#pragma once

#include "host/TemporaryFolder.h"
#include "support/Folders.h"

#include <cstdlib>
#include <string>
#include <vector>

namespace tolvan {

struct ExampleRun {
    int status;          // that of the system call: 0 is well
    std::string output;  // what it printed, drew and reported
};

// The example's lines as they are typed. What it asks for is answered with the number 7, which is a text as well.
inline ExampleRun runExample(const std::vector<std::string>& lines) {
    const TemporaryFolder folder;
    std::string program = "nAv\r\n";
    for (const std::string& line : lines) program.append(line).append("\r\n");
    folder.write("program.tvp", program);
    const std::string command = "cd " + folder.path() + " && echo 7 | timeout 10 " + programFolder() +
                                "/tvp run --trace --no-wait program.tvp >printed 2>called";
    const int status = std::system(command.c_str());
    return {status, folder.read("printed") + folder.read("called")};
}

// Whether a word stands in one of the lines, with no other letter beside it.
inline bool hasWord(const std::vector<std::string>& lines, std::string_view word) {
    const auto isLetter = [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); };
    for (const std::string& line : lines) {
        for (std::size_t at = line.find(word); at != std::string::npos; at = line.find(word, at + 1)) {
            const std::size_t end = at + word.size();
            if ((at == 0 || !isLetter(line[at - 1])) && (end == line.size() || !isLetter(line[end]))) return true;
        }
    }
    return false;
}

}  // namespace tolvan
