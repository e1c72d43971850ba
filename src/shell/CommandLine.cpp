#include "shell/CommandLine.h"

#include "platform/encoding/Ascii.h"
#include "platform/files/FilePath.h"
#include "platform/files/PathLookup.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace tolvan {
namespace {

namespace fs = std::filesystem;

constexpr char quote = '"';

// Calls `word(text)` for each word that is not empty.
template <class WordCall>
void forEachWord(std::string_view arguments, const WordCall& word) {
    const std::string line = std::string(arguments) + ' ';
    bool quoted = false;
    std::size_t start = 0;
    for (std::size_t position = 0; position < line.size(); ++position) {
        const bool boundary = line[position] == quote || (line[position] == ' ' && !quoted);
        if (!boundary) continue;
        if (line[position] == quote) quoted = !quoted;
        if (position > start) word(std::string_view(line).substr(start, position - start));
        start = position + 1;
    }
}

bool isFile(const std::string& path) {
    std::error_code failure;
    // Some systems take a slash at the end of a file's name.
    return !path.ends_with('/') && fs::is_regular_file(filePath(path), failure);
}

// Without "." and ".." parts, unless that leads elsewhere (past a link).
std::string tidied(const std::string& path) {
    std::error_code failure;
    std::string tidy = filePath(path).lexically_normal().generic_string();
    return fs::equivalent(filePath(path), filePath(tidy), failure) ? tidy : path;
}

// The absolute path of a file that the user named; empty when there is none.
std::string findFile(std::string_view word, const CommandLineFolders& folders) {
    const std::string typed = forwardSlashes(word);
    std::vector<std::string> places;
    if (isFromRoot(typed)) places.push_back(typed);
    places.push_back(folders.current + "/" + typed);
    places.push_back(folders.application + "/" + typed);
    for (const std::string& place : places) {
        const std::string found = pathSpelling(place);
        if (isFile(found)) return tidied(found);
    }
    return {};
}

}  // namespace

std::string joinArguments(const std::vector<std::string>& arguments) {
    std::string line;
    for (const std::string& argument : arguments) {
        if (!line.empty()) line += ' ';
        const bool hasBlanks = argument.find(' ') != std::string::npos;
        line.append(hasBlanks ? quote + argument + quote : argument);
    }
    return line;
}

CommandLine parseCommandLine(std::string_view arguments, const CommandLineFolders& folders) {
    CommandLine result;
    forEachWord(arguments, [&](std::string_view word) {
        if (word.starts_with('-')) {
            result.options.insert(lowerCase(word));
        } else if (!result.filename.empty()) {
            result.problems.push_back(CommandLine::Problem::SecondFile);
        } else {
            result.filename = findFile(word, folders);
            if (result.filename.empty()) result.problems.push_back(CommandLine::Problem::NoSuchFile);
        }
    });
    return result;
}

std::string pathSpelling(std::string_view path) {
    std::error_code failure;
    std::string found = findPath(path);
    return fs::exists(filePath(found), failure) ? found : std::string();
}

std::string_view problemText(CommandLine::Problem problem) {
    return problem == CommandLine::Problem::SecondFile ? "Ambigious command-line arguments. Unable to understand."
                                                       : "File cannot be located. Sorry.";
}

std::string_view usageText() {
    return "Tolbasic Command-Line Options:\r\n"
           "Tolvan Basic.exe [[programname] [-run] [-compile]]\r\n"
           "[programname]=Name of File containing the Tolvan Basic Program to Load.\r\n"
           "[-run]=Automatically run [Programname] upon loading.\r\n"
           "[-compile]=compile [programname] to stand-alone executable file.";
}

}  // namespace tolvan
