#include "shell/ExecutableName.h"

#include <gtest/gtest.h>

namespace tolvan {
namespace {

TEST(ExecutableName, TakesThePlaceOfWhatFollowsTheLastDot) {
    const struct {
        const char* program;
        const char* executable;
    } cases[] = {
        {"/home/prog.tvp", "/home/prog.exe"}, {"/home/a.b.tvp", "/home/a.b.exe"}, {"/home/prog", "/home/prog.exe"},
        {"/my.dir/prog", "/my.exe"},          {"/home/prog.", "/home/prog.exe"},  {"/home/prog.EXE", "/home/prog.exe"},
    };
    for (const auto& row : cases) EXPECT_EQ(executableName(row.program), row.executable);
    EXPECT_EQ(executableName("/home/prog.exe"), std::nullopt);
    EXPECT_EQ(executableName(".exe"), std::nullopt);
}

}  // namespace
}  // namespace tolvan
