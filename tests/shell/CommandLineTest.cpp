// The command line: words, options, and the files that are found for names.
#include "host/TemporaryFolder.h"
#include "shell/CommandLine.h"

#include <gmock/gmock.h>

namespace tolvan {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

constexpr auto secondFile = CommandLine::Problem::SecondFile;
constexpr auto noSuchFile = CommandLine::Problem::NoSuchFile;

// A working folder and an application folder with files in them.
class CommandLineTest : public testing::Test {
  protected:
    CommandLineTest() {
        std::filesystem::create_directories(folder_ / "Work/My Programs");
        std::filesystem::create_directories(folder_ / "App");
        for (const char* file : {"Work/Prog.tvp", "Work/same.tvp",
#ifndef _WIN32  // where these are two files
                                 "Work/SAME.tvp",
#endif
                                 "Work/My Programs/First One.tvp", "App/shipped.tvp", "App/prog.tvp"})
            folder_.write(file, "");
    }

    CommandLine parse(std::string_view line) const {
        return parseCommandLine(line, {folder_ / "Work", folder_ / "App"});
    }
    std::string work(std::string_view name) const {
        return folder_ / "Work/" + std::string(name);
    }

    TemporaryFolder folder_;
};

TEST_F(CommandLineTest, FindsTheFileAsTheDiskSpellsIt) {
    struct {
        std::string line;
        std::string found;  // in the test's folder
    } const cases[] = {
        {"prog.tvp", "Work/Prog.tvp"},
        {"PROG.TVP", "Work/Prog.tvp"},
        {"same.tvp", "Work/same.tvp"},
#ifndef _WIN32
        {"SAME.tvp", "Work/SAME.tvp"},
#endif
        {"\"my programs/first one.TVP\"", "Work/My Programs/First One.tvp"},
        {"\"My Programs\\First One.tvp\"", "Work/My Programs/First One.tvp"},
        {"./Prog.tvp", "Work/Prog.tvp"},
        {"../app/shipped.tvp", "App/shipped.tvp"},
        {"shipped.tvp", "App/shipped.tvp"},
        {folder_ / "work/prog.tvp", "Work/Prog.tvp"},
        {"-x prog.tvp -y", "Work/Prog.tvp"},
        {"-run\"prog.tvp\"-?", "Work/Prog.tvp"},
    };
    for (const auto& row : cases) {
        const CommandLine result = parse(row.line);
        EXPECT_EQ(result.filename, folder_ / row.found) << row.line;
        EXPECT_THAT(result.problems, IsEmpty()) << row.line;
    }
}

TEST_F(CommandLineTest, TellsProblemsInTheirOrder) {
    struct {
        std::string line;
        std::string found;
        std::vector<CommandLine::Problem> problems;
    } const cases[] = {
        {"nothing.tvp", "", {noSuchFile}},
        {"", "", {}},
        {"   ", "", {}},
        {"prog.tvp same.tvp", "Prog.tvp", {secondFile}},
        {"prog.tvp nothing.tvp x", "Prog.tvp", {secondFile, secondFile}},
        {"nothing.tvp prog.tvp x", "Prog.tvp", {noSuchFile, secondFile}},
        {"My Programs/First One.tvp", "", {noSuchFile, noSuchFile, noSuchFile}},
        {"\"My Programs\"", "", {noSuchFile}},  // a folder
        {"prog.tvp/", "", {noSuchFile}},
        {"c:\\prog.tvp", "", {noSuchFile}},
        {"\"\" prog.tvp \"\"", "Prog.tvp", {}},
        {"prog.tvp \"same.tvp", "Prog.tvp", {}},  // a quote that is never closed: the word has no end
    };
    for (const auto& row : cases) {
        const CommandLine result = parse(row.line);
        EXPECT_EQ(result.filename, row.found.empty() ? "" : work(row.found)) << row.line;
        EXPECT_EQ(result.problems, row.problems) << row.line;
    }
}

TEST_F(CommandLineTest, OptionsAreLowerCaseAndEachIsThereOnce) {
    EXPECT_THAT(parse("-RUN -Run prog.tvp -run -X").options, UnorderedElementsAre("-run", "-x"));
    EXPECT_THAT(parse("\"-run fast\" -").options, UnorderedElementsAre("-run fast", "-"));
    EXPECT_TRUE(parse("-?").has("-?"));
    EXPECT_FALSE(parse("-run").has("-compile"));
}

TEST_F(CommandLineTest, KeepsTogetherWhatTheShellHandedOverAsOneArgument) {
    EXPECT_EQ(joinArguments({"-run", "My Programs/First One.tvp", "", "x"}), "-run \"My Programs/First One.tvp\"  x");
    EXPECT_EQ(parse(joinArguments({"my programs/first one.tvp", "-run"})).filename, work("My Programs/First One.tvp"));
}

}  // namespace
}  // namespace tolvan
