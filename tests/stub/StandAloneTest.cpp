// Stand-alone executables as they are handed on: a file of its own, started on a display.
#include "shell/Payload.h"
#include "shell/user/DrivenProcess.h"
#include "stub/ExecutableExtent.h"
#include "translator/ProgramFile.h"
#include "translator/ProgramText.h"
#include "translator/Translator.h"

#include <gmock/gmock.h>

namespace tolvan {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

const fs::path examples = fs::path(TOLVAN_SOURCE_DIR) / "examples";

std::string content(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
    return lines;
}

// The runtime with something behind it, ready to be started.
std::string writeExecutable(const TemporaryFolder& folder, const std::string& behind) {
    const std::string path = folder / "program.exe";
    fs::copy_file(TOLVAN_BIN_DIR "/engine.dat", path, fs::copy_options::overwrite_existing);
    std::ofstream(path, std::ios::binary | std::ios::app) << behind;
    return path;
}

std::string payloadOf(const std::string& caption, std::string_view roman) {
    return buildPayload({caption, Translator().Compile(ProgramText(roman))});
}

class ExampleAsExecutable : public testing::TestWithParam<std::string> {};

TEST_P(ExampleAsExecutable, PrintsDrawsAndReadsAsOnATextConsole) {
    const ProgramFile program = readProgramFile(content(examples / (GetParam() + ".tvp")));
    const std::string input = content(examples / "expected" / (GetParam() + ".in"));
    DrivenProcess process;
    process.folder().write("answers", input);
    const std::string tvp = "cd " + process.folder().path() + " && " TOLVAN_BIN_DIR "/tvp run --trace " +
                            (examples / (GetParam() + ".tvp")).string() + " <" + (process.folder() / "answers") +
                            " 2>" + (process.folder() / "expected") + " >/dev/null";
    ASSERT_EQ(std::system(tvp.c_str()), 0);

    std::vector<std::string> deeds;
    for (const std::string& line : linesOf(input)) deeds.push_back("frmExec type " + line);
    deeds.emplace_back("frmExec leave");
    process.setEnvironment("TOLVAN_TRACE", process.folder() / "trace");
    const DrivenResult result =
        process.run(writeExecutable(process.folder(), payloadOf(program.caption, program.roman)), {}, deeds);
    EXPECT_EQ(result.status, 0) << result.errors;
    EXPECT_THAT(result.windows, ElementsAre(StartsWith("frmExec|")));
    EXPECT_EQ(process.folder().read("trace"), process.folder().read("expected"));
    EXPECT_NE(process.folder().read("trace"), "");
}

std::vector<std::string> exampleNames() {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(examples))
        if (entry.path().extension() == ".tvp") names.push_back(entry.path().stem().string());
    std::sort(names.begin(), names.end());
    return names;
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

}  // namespace
}  // namespace tolvan
