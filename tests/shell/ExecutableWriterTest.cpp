// Making an executable.
#include "host/TemporaryFolder.h"
#include "runtime/host/FileError.h"
#include "shell/ExecutableName.h"
#include "shell/ExecutableWriter.h"
#include "shell/MakeExe.h"
#include "shell/Payload.h"
#include "translator/MessageTable.h"

#include <gmock/gmock.h>

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

namespace fs = std::filesystem;
using testing::EndsWith;
using testing::HasSubstr;

class ExecutableWriterTest : public testing::Test {
  protected:
    ExecutableWriterTest() {
        folder_.write("engine.dat", "runtime");
        folder_.write("prog.tvp", "nAv\r\ndAkhav 1\r\n");
    }

    std::optional<int> write(const char* engine, const char* program, const std::string& executable) {
        return writeExecutable({folder_ / engine, folder_ / program, executable}, caption_);
    }

    TemporaryFolder folder_;
    std::string caption_ = "before";
};

TEST_F(ExecutableWriterTest, CopiesTheRuntimeAndPutsTheProgramBehind) {
    EXPECT_EQ(write("engine.dat", "prog.tvp", folder_ / "prog.exe"), std::nullopt);
    const std::string bytes = folder_.read("prog.exe");
    EXPECT_EQ(bytes.substr(0, 7), "runtime");
    const auto payload = readPayload(bytes.substr(7));
    ASSERT_TRUE(payload);
    EXPECT_EQ(payload->caption, "nAv");
    EXPECT_THAT(payload->module, HasSubstr("PrintString 1"));
    EXPECT_EQ(caption_, "nAv");
    EXPECT_NE(fs::status(folder_ / "prog.exe").permissions() & fs::perms::owner_exec, fs::perms::none);
}

TEST_F(ExecutableWriterTest, FailuresHaveTheNumberOfTheirReason) {
    folder_.write("noend.tvp", "caption");
    folder_.write("empty.tvp", "");
    const struct {
        const char* engine;
        const char* program;
        std::string executable;
        int number;
    } cases[] = {
        {"engine.dat", "noend.tvp", folder_ / "a.exe", 6}, {"engine.dat", "empty.tvp", folder_ / "a.exe", 6},
        {"engine.dat", "none.tvp", folder_ / "b.exe", 53}, {"engine.dat", "prog.tvp", folder_ / "none/b.exe", 76},
        {"engine.dat", "prog.tvp", folder_.path(), 75},
#ifndef _WIN32
        {"engine.dat", "prog.tvp", "/dev/full", 61},
#endif
    };
    for (const auto& row : cases)
        EXPECT_EQ(write(row.engine, row.program, row.executable), row.number) << row.program << ' ' << row.executable;
    EXPECT_EQ(folder_.read("a.exe"), "runtime");  // what was written stays
    EXPECT_FALSE(fs::exists(folder_ / "b.exe"));
}

// So the text alone, for a number without a message, is never told.
TEST(ExecutableWriter, EveryReasonOfTheSystemHasAMessage) {
    for (int reason = 1; reason < 200; ++reason)
        for (const FileError error : {fileError(reason), openFileError(reason, "/none/file")})
            EXPECT_TRUE(findMessage(static_cast<int>(error))) << reason;
}

TEST(MakeExeFailureText, NamesTheReasonWhereThereIsOne) {
    EXPECT_THAT(makeExeFailureText(61), EndsWith("smjle nahI\\f0. \\f1ifSk mxe jaga nahI"));
    for (const int unknown : {0, 12345}) EXPECT_THAT(makeExeFailureText(unknown), EndsWith("smjle nahI\\f0. "));
}

}  // namespace
}  // namespace tolvan
