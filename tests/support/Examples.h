// The example programs of the application and what is kept of their runs.
#pragma once

#include "support/Folders.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace tolvan {

// All bytes of a file; empty when there is no such file.
inline std::string contentOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

inline std::filesystem::path exampleProgram(const std::string& name) {
    return std::filesystem::path(sourceFolder()) / "examples" / (name + ".tvp");
}

// ".in" is what is typed in a run, ".out" what is printed, ".trace" what is drawn.
inline std::filesystem::path expectedOfExample(const std::string& name, const char* extension) {
    return std::filesystem::path(sourceFolder()) / "examples/expected" / (name + extension);
}

// The console after a run, as it is shown beside the title.
inline std::filesystem::path pictureOfExample(const std::string& name) {
    return std::filesystem::path(sourceFolder()) / "examples/pictures" / (name + ".png");
}

// tvp's arguments for a run that is the same every time: chance and clock begin alike, and ".keys" are pressed.
// Its files are in the working folder.
inline std::vector<std::string> runWithoutKeys(const std::string& name) {
    return {"run", "--trace", "--seed=1", "--no-wait", "--files=.", exampleProgram(name).string()};
}
inline std::vector<std::string> runOfExample(const std::string& name) {
    std::vector<std::string> arguments = runWithoutKeys(name);
    const std::filesystem::path keys = expectedOfExample(name, ".keys");
    if (exists(keys)) arguments.push_back("--keys=" + keys.string());
    return arguments;
}

inline std::vector<std::string> exampleNames() {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(sourceFolder() + "/examples"))
        if (entry.path().extension() == ".tvp") names.push_back(entry.path().stem().string());
    std::sort(names.begin(), names.end());
    return names;
}

}  // namespace tolvan
