// Runs every script in programs/: what it is expected to print stands in it, as comments "'> text", in order. A line
// "'> error NUMBER line LINE" at the end expects it to fail.

#include "script/ScriptConsole.h"
#include "support/Folders.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

namespace tolvan::script {
namespace {

std::vector<std::filesystem::path> programs() {
    std::vector<std::filesystem::path> found;
    for (const auto& entry : std::filesystem::directory_iterator(sourceFolder() + "/tests/script/programs"))
        if (entry.path().extension() == ".vbs") found.push_back(entry.path());
    std::sort(found.begin(), found.end());
    return found;
}

std::string expectationIn(const std::string& source) {
    std::string expected;
    std::istringstream lines(source);
    for (std::string line; std::getline(lines, line);) {
        const std::size_t mark = line.find("'> ");
        if (mark != std::string::npos) expected += line.substr(mark + 3) + "\n";
    }
    return expected;
}

class Programs : public testing::TestWithParam<std::filesystem::path> {};

TEST_P(Programs, PrintsWhatItSays) {
    std::ifstream file(GetParam(), std::ios::binary);
    std::stringstream source;
    source << file.rdbuf();
    EXPECT_EQ(outcome(source.str()), expectationIn(source.str()));
}

INSTANTIATE_TEST_SUITE_P(All, Programs, testing::ValuesIn(programs()),
                         [](const auto& parameter) { return parameter.param.stem().string(); });

}  // namespace
}  // namespace tolvan::script
