// Scripts as the translator emits them, run against a console that writes down its calls.
#include "host/RecordingConsole.h"
#include "host/TemporaryFolder.h"
#include "runtime/host/ConsoleObject.h"
#include "runtime/host/ModuleRunner.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tolvan {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Calls = std::vector<std::string>;

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
    const struct {
        const char* statement;
        const char* call;
    } cases[] = {
        {"parentform.PrintString  \" a \" & 5", "print  a 5"},
        {"PRINTSTRING CStr(12)", "print 12"},
        {"parentform.PrintString -2.5", "print {-}2{.}5"},
        {"parentform.PrintString 1E15 * 10", "print 1{E+}16"},
        {"parentform.PrintString \"{-}2{.}5\" * 2", "print {-}5"},
        {"parentform.PrintString 1 < 2", "print ore"},
        {"parentform.PrintString nothingYet", "print "},
        {"parentform.ClearScreen", "clear"},
        {"ParentForm.DrawPoint 1.5,\"2\"", "point 1.5,2"},
        {"ParentForm.DrawPoint 1,2 ,RGB(1,2,3) ", "point 1,2 colour 197121"},
        {"parentform.DrawLine 30,40", "line 30,40"},
        {"parentform.DrawLine 30,40,10,20", "line 30,40 to 10,20"},
        {"parentform.DrawLine 30,40,10,20,255", "line 30,40 to 10,20 colour 255"},
        {"parentform.DrawLine 30,40,,,255", "line 30,40 colour 255"},
        {"parentform.DrawBox 30,40", "box 30,40"},
        {"parentform.DrawBox 30,40, TRUE", "solid box 30,40"},
        {"parentform.DrawBox 30,40,,,255", "box 30,40 colour 255"},
        {"parentform.DrawBox 30,40,,,255, TRUE", "solid box 30,40 colour 255"},
        {"parentform.DrawBox 30,40,10,20", "box 30,40 to 10,20"},
        {"parentform.DrawBox 30,40,10,20, TRUE", "solid box 30,40 to 10,20"},
        {"parentform.DrawBox 30,40,10,20,255, TRUE", "solid box 30,40 to 10,20 colour 255"},
        {"parentform.DrawBox 30,40,10,20,255,0", "box 30,40 to 10,20 colour 255"},
        {"ParentForm.DrawCircle 1,2, 3,, FALSE", "circle 3,0 to 1,2"},
        {"ParentForm.DrawCircle 1,2, 3,255, TRUE", "disc 3,0 to 1,2 colour 255"},
        {"ParentForm.DrawCircle 1,2, 3,255, Null", "circle 3,0 to 1,2 colour 255"},
        {"parentform.PrintString DisplayWidth - displayheight", "print 159{.}5"},
    };
    for (const auto& [statement, call] : cases) {
        console.calls.clear();
        EXPECT_EQ(run(statement), 0) << statement;
        EXPECT_THAT(console.calls, ElementsAre(call)) << statement;
    }
}

TEST_F(ConsoleObjectTest, RefusesArgumentsThatDoNotFit) {
    const struct {
        const char* statement;
        int number;
    } cases[] = {
        {"parentform.PrintString", 450},
        {"parentform.PrintString 1,2", 450},
        {"parentform.ClearScreen 1", 450},
        {"parentform.InputString", 450},
        {"ParentForm.DrawPoint 1", 450},
        {"parentform.DrawLine 1,2,3,4,5,6", 450},
        {"parentform.DrawBox 1,2,3,4,5,6,7", 450},
        {"ParentForm.DrawCircle 1,2", 450},
        {"parentform.FileOpen \"a\"", 450},
        {"ParentForm.DrawPoint ,2", 449},
        {"ParentForm.DrawCircle 1,2,,255, TRUE", 449},
        {"parentform.DrawLine ,2,3,4", 449},
        {"parentform.DrawLine 1,2,3", 13},
        {"parentform.DrawLine 1,2,3,,255", 13},
        {"parentform.DrawBox 1,2,3", 13},
        {"ParentForm.DrawPoint \"kr\",2", 13},
        {"ParentForm.DrawPoint 1,2,\"kr\"", 13},
        {"ParentForm.DrawCircle 1,2,3,,\"kr\"", 13},
        {"ParentForm.DrawPoint 1E39,2", 6},
        {"ParentForm.DrawPoint 1,2,3000000000", 6},
        {"ParentForm.DrawPoint Null,2", 94},
        {"parentform.PrintString Null", 94},
        {"parentform.NoSuchThing 1", 438},
    };
    for (const auto& [statement, number] : cases) EXPECT_EQ(run(statement), number) << statement;
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

TEST_F(ConsoleObjectTest, CountsTheLineOfAnError) {
    const script::ErrorReport report =
        runModule("Sub Main()\r\nparentform.PrintString 1\r\n\r\nparentform.DrawPoint \"kr\",1\r\nEnd Sub\r\n");
    EXPECT_EQ(report.number, 13);
    EXPECT_EQ(report.line, 4);
    EXPECT_EQ(runModule("Sub Main()\r\nparentform.PrintString 1\r\nif 1 then then\r\nEnd Sub\r\n").line, 3);
}

TEST_F(ConsoleObjectTest, RunsAModuleWithoutMain) {
    EXPECT_EQ(runModule("").number, 0);
    EXPECT_EQ(runModule("ParentForm.PrintString 1\r\n").number, 0);
    EXPECT_THAT(console.calls, ElementsAre("print 1"));
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
    std::string open(const std::string& name, const std::string& mode) const {
        return "parentform.FileOPEN  \"{" + (folder / name) + "}\"," + mode + " \r\n";
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
    const std::string name = folder / "f";
    const struct {
        std::string arguments;
        int number;
    } cases[] = {
        {"\"{" + name + "}\",1", 53},
        {"\"{" + folder.path() + "}\",2", 75},
        {"\"\",1", 52},
        {"5,1", 5},
        {"unassigned,1", 5},
        {",1", 5},
        {"\"{" + name + "}\",4", 5},
        {"\"{" + name + "}\",\"kr\"", 5},
        {"\"{" + name + "}\",Null", 5},
        {"\"{" + name + "}\",", 5},
        {"\"{" + name + "}\",0", 54},
        {"\"{" + name + "}\",3.9", 54},
    };
    for (const auto& [arguments, number] : cases) {
        console.calls.clear();
        EXPECT_EQ(run("parentform.FileOpen " + arguments + "\r\nparentform.PrintString 1"), 0) << arguments;
        EXPECT_THAT(console.calls, ElementsAre("file " + std::to_string(number), "print 1")) << arguments;
    }
    EXPECT_FALSE(std::filesystem::exists(name));
}

TEST_F(DataFileTest, RaisesErrorsOfReadingAndWriting) {
    folder.write("f", "a\r\n");
    const struct {
        std::string statements;
        int number;
    } cases[] = {
        {"parentform.FileWrite 1", 52},
        {"parentform.FileInput a", 52},
        {"a = parentform.EndOfFile", 52},
        {"parentform.FileClose", 0},
        {open("f", "1") + "parentform.FileWrite 1", 54},
        {open("f", "3") + "parentform.FileInput a", 54},
        {open("f", "1") + "parentform.FileInput a\r\nparentform.FileInput a", 62},
        {"parentform.FileOpen \"{/dev/full}\",3\r\nparentform.FileWrite 1", 61},
    };
    for (const auto& [statements, number] : cases) EXPECT_EQ(run(statements), number) << statements;
}

}  // namespace
}  // namespace tolvan
