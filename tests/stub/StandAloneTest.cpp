// Stand-alone executables as they are handed on: a file of its own, started on a display.
#include "shell/Payload.h"
#include "shell/user/DrivenProcess.h"
#include "stub/ExecutableExtent.h"
#include "support/Examples.h"
#include "support/Folders.h"
#include "translator/ProgramText.h"
#include "translator/Translator.h"

#include <gmock/gmock.h>

namespace tolvan {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
    return lines;
}

// The runtime with something behind it, ready to be started.
std::string writeExecutable(const TemporaryFolder& folder, const std::string& behind) {
    const std::string path = folder / "program.exe";
    fs::copy_file(programFolder() + "/engine.dat", path, fs::copy_options::overwrite_existing);
    std::ofstream(path, std::ios::binary | std::ios::app) << behind;
    return path;
}

std::string payloadOf(const std::string& caption, std::string_view roman) {
    return buildPayload({caption, Translator().Compile(ProgramText(roman))});
}

class ExampleAsExecutable : public testing::TestWithParam<std::string> {};

TEST_P(ExampleAsExecutable, PrintsDrawsAndReadsAsOnATextConsole) {
    const std::string input = contentOf(expectedOfExample(GetParam(), ".in"));
    DrivenProcess process;
    process.folder().write("answers", input);
    fs::copy_file(exampleProgram(GetParam()), process.folder() / "program.tvp");
    std::string tvp = "cd " + process.folder().path() + " && " + programFolder() + "/tvp";
    for (const std::string& argument : runWithoutKeys(GetParam())) tvp.append(" ").append(argument);
    tvp.append(" <" + (process.folder() / "answers") + " 2>" + (process.folder() / "expected") + " >/dev/null");
    ASSERT_EQ(std::system(tvp.c_str()), 0);

    const DrivenResult made =
        process.run(programFolder() + "/tolbasic", {"program.tvp", "-compile"}, {"frmSplash leave"});
    ASSERT_EQ(made.status, 0) << made.errors;

    std::vector<std::string> deeds;
    for (const std::string& line : linesOf(input)) deeds.push_back("frmExec type " + line);
    deeds.emplace_back("frmExec leave");
    process.setEnvironment("TOLVAN_TRACE", process.folder() / "trace");
    process.setEnvironment("TOLVAN_SEED", "1");
    // A screen that is large enough for the console's own size.
    process.setEnvironment("QT_QPA_PLATFORM", "offscreen:configfile=" + sourceFolder() + "/tests/screen.json");
    const DrivenResult result = process.run(process.folder() / "program.exe", {}, deeds);
    EXPECT_EQ(result.status, 0) << result.errors;
    EXPECT_THAT(result.windows, ElementsAre(StartsWith("frmExec|")));
    EXPECT_EQ(process.folder().read("trace"), process.folder().read("expected"));
    EXPECT_NE(process.folder().read("trace"), "");
}

INSTANTIATE_TEST_SUITE_P(All, ExampleAsExecutable, testing::ValuesIn(exampleNames()),
                         [](const auto& test) { return test.param; });

TEST(StandAlone, ScriptErrorShowsTheErrorBox) {
    const std::string payload = payloadOf("", "dAkhav 1 / 0\r\ndAkhav 2");
    {
        DrivenProcess process;
        process.setEnvironment("TOLVAN_TRACE", process.folder() / "trace");
        const DrivenResult result =
            process.run(writeExecutable(process.folder(), payload), {}, {"frmErrorBox click cmdStop"});
        EXPECT_EQ(result.status, 0) << result.errors;
        EXPECT_THAT(result.windows, ElementsAre(StartsWith("frmExec|"), HasSubstr("zuNyne -gakar")));
        EXPECT_EQ(process.folder().read("trace"), "");
    }
    {  // going on abandons the program too, but its console stays until a key
        DrivenProcess process;
        const DrivenResult result =
            process.run(writeExecutable(process.folder(), payload), {}, {"frmErrorBox click cmdRun", "frmExec leave"});
        EXPECT_EQ(result.status, 0) << result.errors;
    }
}

TEST(StandAlone, DamageIsToldInDevanagariAndIsAnExitStatus) {
    const std::string whole = payloadOf("nAv", "dAkhav 1");
    std::string changed = whole;
    changed[10] = static_cast<char>(changed[10] + 1);
    for (const std::string& behind : {std::string(), changed, whole.substr(0, whole.size() / 2), whole.substr(1)}) {
        DrivenProcess process;
        const DrivenResult result =
            process.run(writeExecutable(process.folder(), behind), {}, {"frmMMsgbox click cmdOK"});
        EXPECT_EQ(result.status, 1) << result.errors;
        EXPECT_THAT(result.windows, ElementsAre(HasSubstr("ib\"flelI Aahe")));
    }
}

TEST(StandAlone, ADamagedRuntimeIsTold) {
    const std::string behind = payloadOf("nAv", "dAkhav 1");
    DrivenProcess process;
    const std::string path = writeExecutable(process.folder(), behind);
    // A text of the runtime, which no code depends on.
    std::string bytes = process.folder().read("program.exe");
    const std::size_t place = bytes.find("TOLVAN_TRACE");
    ASSERT_NE(place, std::string::npos);
    bytes[place + 3] = 'x';
    process.folder().write("program.exe", bytes);
    const DrivenResult result = process.run(path, {}, {"frmMMsgbox click cmdOK"});
    EXPECT_EQ(result.status, 1) << result.errors;
    EXPECT_THAT(result.windows, ElementsAre(HasSubstr("ib\"flelI Aahe")));
}

// Tools that remove symbols leave the checksum true.
TEST(StandAlone, AStrippedRuntimeIsWhole) {
    DrivenProcess process;
    const std::string path = writeExecutable(process.folder(), "");
    if (std::system(("strip " + path).c_str()) != 0) GTEST_SKIP() << "no strip here";
    std::ofstream(path, std::ios::binary | std::ios::app) << payloadOf("nAv", "dAkhav 1");
    const DrivenResult result = process.run(path, {}, {"frmExec leave"});
    EXPECT_EQ(result.status, 0) << result.errors;
    EXPECT_THAT(result.windows, ElementsAre(StartsWith("frmExec|")));
}

TEST(StandAlone, WithoutADisplayALineOfTextSaysSo) {
    const TemporaryFolder folder;
    for (const std::string& program : {programFolder() + "/tolbasic", programFolder() + "/engine.dat"}) {
        const std::string command = "env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM " + program + " 2>" +
                                    (folder / "errors") + "; echo $? >" + (folder / "status");
        EXPECT_EQ(std::system(command.c_str()), 0);
        EXPECT_EQ(folder.read("status"), "1\n");
        EXPECT_THAT(folder.read("errors"), testing::EndsWith("there is no display\n"));
        EXPECT_EQ(linesOf(folder.read("errors")).size(), 1U) << folder.read("errors");
    }
}

}  // namespace
}  // namespace tolvan
