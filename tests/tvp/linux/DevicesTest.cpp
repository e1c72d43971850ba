// Devices and signals at the ends of tvp.
#include "platform/files/Descriptor.h"
#include "tvp/TvpProcess.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <signal.h>
#include <sys/stat.h>

namespace tolvan {
namespace {

using testing::HasSubstr;

TEST(CommandLine, TakesNoPipesAndDevices) {
    TvpProcess tvp;
    ASSERT_EQ(::mkfifo((tvp.folder() / "pipe").c_str(), 0600), 0);
    EXPECT_THAT(tvp.run({"run", "pipe"}).errors, HasSubstr("no ordinary file"));
    EXPECT_THAT(tvp.run({"run", "/dev/zero"}).errors, HasSubstr("no ordinary file"));
}

TEST(CommandLine, SaysWhenItsOutputCannotBeWritten) {
    TvpProcess tvp;
    tvp.sendOutputTo("/dev/full");
    const TvpResult result = tvp.runProgram({"run"}, "jovar 1 = 1 tovar\r\ndAkhav 1\r\nkar");
    EXPECT_EQ(result.status, 2) << "an endless program ends when nobody can read it";
    EXPECT_THAT(result.errors, HasSubstr("cannot write the output: No space left on device"));
}

TEST(CommandLine, SendsNoControlCodesToATerminal) {
    const Descriptor terminal(::posix_openpt(O_RDWR | O_NOCTTY));
    ASSERT_TRUE(terminal.isOpen() && ::grantpt(terminal.number()) == 0 && ::unlockpt(terminal.number()) == 0);
    TvpProcess tvp;
    tvp.sendOutputTo(::ptsname(terminal.number()));
    tvp.runProgram({"run"}, "dAkhav #\"\x1B]0;\x07 \x9B \xC2\x9B \xE0\xA4\x95\"#");
    std::string shown;
    EXPECT_EQ(terminal.read(shown, 1000), 0);
    EXPECT_EQ(shown, "{?]0;? ? ? \xE0\xA4\x95}\r\n");
}

TEST(CommandLine, EndsAtCtrlC) {
    TvpProcess tvp;
    tvp.interruptWhen([&] { return !tvp.folder().read(".output").empty(); }, SIGINT);
    const TvpResult result = tvp.runProgram({"run", "--trace"}, "dAkhav 1\r\njovar 1 = 1 tovar\r\nkar");
    EXPECT_EQ(result.status, 128 + SIGINT);
    EXPECT_EQ(result.output, "1\n") << "what was printed before is not lost";
    EXPECT_EQ(result.errors, "PrintString 1\n");
}

}  // namespace
}  // namespace tolvan
