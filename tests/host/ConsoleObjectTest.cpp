// Scripts as the translator emits them, run against a console that writes down its calls.
#include "host/RecordingConsole.h"
#include "host/TemporaryFolder.h"
#include "runtime/host/ConsoleObject.h"
#include "runtime/host/RunModule.h"
#include "support/Cases.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tolvan {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Calls = std::vector<std::string>;

const std::string cases = "host/calls.cases";

class ConsoleObjectTest : public testing::Test {
  protected:
    RecordingConsole console;
    ConsoleObject object{console};
    script::Executor executor;
    Calls trace;

    script::ErrorReport runModule(const std::string& module) { return tolvan::runModule(executor, object, module); }
    // The number of the error that the statements end with.
    int run(const std::string& statements) {
        return runModule("Sub Main()\r\n" + statements + "\r\nEnd Sub\r\n").number;
    }
    void startTrace() {
        object.setTrace([this](std::string_view call) { trace.emplace_back(call); });
    }
};

TEST_F(ConsoleObjectTest, PassesArgumentsOnAndFillsInMissingOnes) {
    for (const Row& row : rowsOf(cases, "The call that reaches the console")) {
        console.calls.clear();
        console.keys = {"{a}", "vr"};
        EXPECT_EQ(run(row[0]), 0) << row;
        EXPECT_THAT(console.calls, ElementsAre(row[1])) << row;
    }
}

TEST_F(ConsoleObjectTest, RefusesArgumentsThatDoNotFit) {
    for (const Row& row : rowsOf(cases, "The error of arguments that do not fit"))
        EXPECT_EQ(run(row[0]), std::stoi(row[1])) << row;
    EXPECT_THAT(console.calls, IsEmpty());
}

TEST_F(ConsoleObjectTest, SetsTheVariableThatReceivesInput) {
    console.answers = {"{-}5", "kr"};
    EXPECT_EQ(run("parentform.InputString a \r\nparentform.InputString b(1) \r\n"
                  "parentform.PrintString a + 1 & b(1)"),
              13)
        << "b is no array";
    console.answers = {"{-}5", "kr"};
    EXPECT_EQ(run("Dim b(2)\r\nparentform.InputString a \r\nparentform.InputString b(1) \r\n"
                  "parentform.PrintString CDbl(a) + 1 & b(1)"),
              0);
    EXPECT_THAT(console.calls, ElementsAre("print {-}4kr"));
}

constexpr const char* poll = "if not parentform.checkforevents then err.raise 1001\r\n";

TEST_F(ConsoleObjectTest, EndsAtThePollBehindAStop) {
    const std::string after = std::string("\r\n") + poll + "parentform.PrintString \"not reached\"";
    EXPECT_EQ(run(poll + std::string("parentform.StopExecution") + after), 1001);
    EXPECT_FALSE(console.running);

    console.running = true;
    EXPECT_EQ(run("a = 7\r\nparentform.InputString a \r\nparentform.PrintString a" + after), 1001);
    EXPECT_THAT(console.calls, ElementsAre("print 7")) << "stopped while it waited for input";

    console.running = true;
    console.stopWhenFileFails = true;
    console.calls.clear();
    EXPECT_EQ(run("parentform.FileOpen \"{no/such}\",1" + after), 1001);
    EXPECT_THAT(console.calls, ElementsAre("file 76"));
}

// A large array is made, or copied, for longer than a user waits for an answer.
TEST_F(ConsoleObjectTest, EndsWithinAStatementThatTakesLong) {
    for (const char* statement : {"Dim a(600000)", "b = whole : b(1) = 1"}) {
        console.running = true;
        const std::string last =
            std::string("parentform.StopExecution\r\n") + statement + "\r\nparentform.PrintString 1";
        EXPECT_EQ(run("ReDim whole(600000)\r\n" + last), script::errors::timedOut) << statement;
    }
    EXPECT_THAT(console.calls, IsEmpty());
    console.running = true;
    EXPECT_EQ(run("Dim a(600000)\r\nparentform.PrintString UBound(a)"), 0);
}

TEST_F(ConsoleObjectTest, TracesCallsButNotPolls) {
    startTrace();
    console.answers = {"kr"};
    run(std::string(poll) +
        "parentform.PrintString \" {a} \" \r\nparentform.DrawLine -2.5,40,,,255\r\nparentform.DrawCircle 1,2, 3,, "
        "TRUE\r\n"
        "parentform.clearscreen\r\nparentform.inputstring a \r\n" +
        poll + "parentform.stopexecution");
    EXPECT_THAT(trace, ElementsAre("PrintString  {a} ", "DrawLine -2.5,40,,,255", "DrawCircle 1,2,3,,True",
                                   "ClearScreen", "InputString ", "StopExecution"));
}

TEST_F(ConsoleObjectTest, FailsInTheSameWayWithATraceAndWithout) {
    startTrace();
    EXPECT_EQ(run("parentform.PrintString Null"), 94);
    EXPECT_EQ(run("Dim a(2)\r\nparentform.PrintString a"), 13);
    EXPECT_EQ(run("parentform.DrawPoint \"kr\",1"), 13);
    EXPECT_THAT(trace, ElementsAre("PrintString ?", "PrintString ?", "DrawPoint kr,1"));
}

class DataFileTest : public ConsoleObjectTest {
  protected:
    TemporaryFolder folder;
    void SetUp() override { object.setFiles(ReachableFiles(folder.path())); }
    std::string open(const std::string& name, const std::string& mode) const {
        return "parentform.FileOPEN  \"{" + (folder / name) + "}\"," + mode + " \r\n";
    }
    std::string withPaths(std::string statements) const {
        for (const auto& [word, path] : {std::pair{"FILE", folder / "f"}, {"FOLDER", folder.path()}})
            for (std::size_t found = 0; (found = statements.find(word)) != std::string::npos;)
                statements.replace(found, std::string_view(word).size(), path);
        return statements;
    }
};

TEST_F(DataFileTest, WritesValuesAndReadsThemBack) {
    const std::string program = open("f.txt", "2") +
                                "parentform.FileWRITE  \"kr\" \r\nparentform.FileWRITE -2.5\r\n"
                                "parentform.FileCLOSE ' b<d\r\n" +
                                open("F.TXT", "\"1\"") +
                                "while not parentform.EndOfFile \r\nparentform.FileINPUT  a \r\n"
                                "parentform.PrintString a * 2\r\nwend";
    EXPECT_EQ(run(program), 13) << "the first line is no number";
    EXPECT_EQ(folder.read("f.txt"), "kr\r\n{-}2{.}5\r\n");
    EXPECT_EQ(run(open("f.txt", "1") + "parentform.FileINPUT a\r\nparentform.FileINPUT a\r\n"
                                       "parentform.PrintString a * 2"),
              0)
        << "the file of the run before is closed";
    EXPECT_THAT(console.calls, ElementsAre("print {-}5"));
}

TEST_F(DataFileTest, ReportsAFileThatDoesNotOpenAndGoesOn) {
    for (const Row& row : rowsOf(cases, "The error of a file that does not open")) {
        console.calls.clear();
        EXPECT_EQ(run("parentform.FileOpen " + withPaths(row[0]) + "\r\nparentform.PrintString 1"), 0) << row;
        EXPECT_THAT(console.calls, ElementsAre("file " + row[1], "print 1")) << row;
    }
    EXPECT_FALSE(std::filesystem::exists(folder / "f"));
}

#ifndef _WIN32
TEST_F(DataFileTest, AsksTheConsoleAboutFilesElsewhere) {
    const std::string opening = "parentform.FileOpen \"{/dev/full}\",3\r\nparentform.FileWrite 1";
    EXPECT_EQ(run(opening), 52);
    EXPECT_THAT(console.calls, ElementsAre("may write /dev/full", "file 70"));
    console.allowsFiles = true;
    EXPECT_EQ(run(opening), 61) << "asked anew in the next run";
}
#endif

TEST_F(DataFileTest, RaisesErrorsOfReadingAndWriting) {
    folder.write("f", "a\r\n");
    for (const Row& row : rowsOf(cases, "The error of reading and writing"))
        EXPECT_EQ(run(withPaths(row[0])), std::stoi(row[1])) << row;
}

}  // namespace
}  // namespace tolvan
