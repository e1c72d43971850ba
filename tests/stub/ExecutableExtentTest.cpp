#include "host/TemporaryFolder.h"
#include "stub/ExecutableExtent.h"
#include "support/Examples.h"
#include "support/Folders.h"

#include <gtest/gtest.h>
#include <random>
#include <sstream>

namespace tolvan {
namespace {

std::optional<std::uint64_t> extentOf(const std::string& bytes) {
    std::istringstream file(bytes);
    return executableExtent(file);
}

TEST(ExecutableExtent, OfTheRuntimeIsItsSizeWhateverStandsBehindIt) {
    const std::string runtime = contentOf(programFolder() + "/engine.dat");
    ASSERT_GT(runtime.size(), 1000U);
    EXPECT_EQ(extentOf(runtime), runtime.size());
    EXPECT_EQ(extentOf(runtime + "payload"), runtime.size());
    EXPECT_EQ(extentOf(runtime + runtime), runtime.size());
}

// Installed programs are stripped.
TEST(ExecutableExtent, OfAStrippedRuntimeIsItsSize) {
    const TemporaryFolder folder;
    const std::string stripped = folder / "stripped";
    ASSERT_EQ(std::system(("strip -o " + stripped + " " + programFolder() + "/engine.dat").c_str()), 0);
    EXPECT_EQ(extentOf(contentOf(stripped) + "payload"), std::filesystem::file_size(stripped));
}

TEST(ExecutableExtent, RefusesWhatIsNoProgram) {
    for (const std::string& bytes : {std::string(),
                                     std::string("\x7f"
                                                 "ELF"),
                                     std::string(10000, 'x')})
        EXPECT_EQ(extentOf(bytes), std::nullopt);
    const std::string runtime = contentOf(programFolder() + "/engine.dat");
    EXPECT_EQ(extentOf(runtime.substr(0, runtime.size() - 1)), std::nullopt);
    EXPECT_EQ(extentOf(runtime.substr(0, 100)), std::nullopt);
}

TEST(ExecutableExtent, SurvivesDamagedHeaders) {
    const std::string head = contentOf(programFolder() + "/engine.dat").substr(0, 4096);
    std::mt19937 random(7);
    for (int i = 0; i < 2000; ++i) {
        std::string damaged = head;
        for (int k = 0; k < 3; ++k) damaged[4 + random() % 1000] = static_cast<char>(random());
        extentOf(damaged);
    }
}

}  // namespace
}  // namespace tolvan
