// Errors while a script runs, its limits, polls, and what the host does to it.

#include "platform/script/Object.h"
#include "platform/script/StringCell.h"
#include "script/ScriptConsole.h"
#include "support/Cases.h"

#include <cstring>
#include <gmock/gmock.h>

namespace tolvan::script {
namespace {

const std::string pollStatement = "if not parentform.checkforevents then err.raise 1001\n";

// With "!" in a module as it stands, or for the poll.
void expectOutcomes(std::string_view title, const std::string& mark = "!") {
    for (const Row& row : rowsOf("script/outcomes.cases", title)) {
        std::string module = row[0];
        for (std::size_t at = 0; (at = module.find('!', at)) != std::string::npos; at += mark.size())
            module.replace(at, 1, mark);
        std::string expected = row[1] + "\n";
        std::erase(expected, '\r');
        EXPECT_EQ(outcome(module), expected) << row;
    }
}

TEST(RunTimeErrors, HaveTheirNumberAndTheLineOfTheStatement) {
    expectOutcomes("The line of the statement that failed");
}

TEST(RunTimeErrors, ReportDescriptionAndSourceToTheHost) {
    Executor executor;
    EXPECT_FALSE(executor.addCode("Err.Raise 4711, \"who\", \"what\""));
    EXPECT_EQ(executor.error().description, "what");
    EXPECT_EQ(executor.error().source, "who");
    EXPECT_FALSE(executor.run("nobody"));
    EXPECT_EQ(executor.error().number, errors::undefinedProcedure);
    EXPECT_TRUE(executor.addCode("x = 1"));
    EXPECT_EQ(executor.error().number, 0);
}

TEST(Limits, RecursionWithoutEndIsAnError) {
    expectOutcomes("Recursion without end");
}

TEST(Limits, MemoryThatRunsOutIsAnErrorAndComesBack) {
    const std::pair<const char*, const char*> cases[] = {
        {"s = \"0123456789\"\nDo\ns = s & s\nLoop", "error 7 line 3\n"},
        {"s = String(10000000, \"x\")\nDim a(1000)\nFor i = 1 To 1000\na(i) = s & i\nNext", "error 7 line 4\n"},
        // There is room behind the text, but it is held twice.
        {"Sub p\nDim i, s, t\nkept = String(40000000, \"x\")\ns = String(12000000, \"x\")\nFor i = 1 To 3\n"
         "s = s & \"yy\"\nt = s\nNext\nEnd Sub\np",
         "error 7 line 6\n"},
        {"Dim a(99999999)", "error 7 line 1\n"},
        {"ReDim a(2147483647)", "error 7 line 1\n"},
        {"ReDim a(1000, 1000, 1000)", "error 7 line 1\n"},
        {"ReDim a(0)\nDo\nReDim Preserve a(UBound(a) * 2 + 1)\nLoop", "error 7 line 3\n"},
        {"x = Space(2000000000)", "error 7 line 1\n"},
        // Code takes memory, too.
        {"Do\nExecute \"Sub p\" & i & \" : x = 1 : End Sub\"\ni = i + 1\nLoop", "error 7 line 2\n"},
        {"Do\nExecute \"Class c : End Class\"\nLoop", "error 7 line 2\n"},
        {"Do\nExecute \"v\" & i & \" = 1\"\ni = i + 1\nLoop", "error 7 line 2\n"},
        {"s = \"x = 1 : \"\nFor i = 1 To 20 : s = s & s : Next\nExecute s", "error 7 line 3\n"},
    };
    for (const auto& [module, expected] : cases) {
        Executor executor;
        executor.setMemoryLimit(std::size_t{64} << 20);
        ScriptConsole console;
        EXPECT_EQ(outcome(executor, console, module), expected) << module;
        executor.reset();
        EXPECT_EQ(executor.memoryUsed(), 0U) << module;
    }
}

TEST(Limits, ALongChainOfObjectsIsTakenApart) {
    EXPECT_EQ(outcome("Class Node\nPublic nxt\nEnd Class\nSet head = Nothing\n"
                      "For i = 1 To 200000\nSet n = New Node\nSet n.nxt = head\nSet head = n\nNext\n"
                      "Set n = Nothing\nSet head = Nothing\nPrintString \"done\"\n"),
              "done\n");
    EXPECT_EQ(outcome("For i = 1 To 200000\na = Array(a)\nNext\na = 1\nPrintString \"done\"\n"), "done\n");
}

TEST(Reset, GivesBackAllMemoryOfARun) {
    Executor executor;
    for (int run = 0; run < 50; ++run) {
        ScriptConsole console;
        EXPECT_EQ(outcome(executor, console,
                          "Dim kept(1000), text\nFor i = 0 To 1000 : kept(i) = \"text\" & i : Next\n"
                          "Class Ring\nPublic other\nSub Class_Terminate : PrintString \"late\" : End Sub\nEnd Class\n"
                          "Set a = New Ring : Set b = New Ring : Set a.other = b : Set b.other = a\n"
                          "Execute \"text = text & \"\"more\"\"\"\nPrintString text\n"),
                  "more\n");
        EXPECT_GT(executor.memoryUsed(), 1000U);
        executor.reset();
        ASSERT_EQ(executor.memoryUsed(), 0U);
        EXPECT_FALSE(executor.hasProcedure("Main"));
        EXPECT_EQ(outcome(executor, console,
                          "Option Explicit\nFunction Main\nMain = \"half\" & \" a result\"\nx = kept\nEnd Function"),
                  "more\nerror 500 line 4\n");
        executor.reset();
        ASSERT_EQ(executor.memoryUsed(), 0U);
    }
}

TEST(Timeout, EndsARunThatTakesTooLong) {
    for (const char* body : {"Do\nLoop", "While True\nWend", "For i = 1 To 2 Step 0\nNext", "Do\nx = f(1)\nLoop",
                             "fib 50", "Do\nif not checkforevents then err.raise 1001\nLoop",
                             "While parentform.checkforevents\nif not checkforevents then err.raise 1001\nWend",
                             "On Error Resume Next\nDo\nx = 1\nLoop", "On Error Resume Next\nDo\nx = y.z\nLoop",
                             "On Error Resume Next\nDo\nSet o = New Waits\nLoop", "Set o = New Waits\no.forks",
                             "For i = 1 To 60\nn = \" : q\" & i + 1\nExecuteGlobal \"Sub q\" & i & n & n & \" : End "
                             "Sub\"\nNext\nExecuteGlobal \"Sub q61 : End Sub\"\nq1",
                             "Do\nExecute \"x = 1\"\nLoop", "On Error Resume Next\nWhile y.z\nWend",
                             "On Error Resume Next\nExecute \"Const k = 1\"\nFor k = 1 To 2\nx = 1\nNext",
                             "On Error Resume Next\nDo Until 1 / 0\nx = 1\nLoop"}) {
        Executor executor;
        executor.setTimeout(30);
        ScriptConsole console;
        const std::string module = std::string("Sub Main\n") + body +
                                   "\nEnd Sub\nFunction f(x)\nf = x\nEnd Function\n"
                                   "Class Waits\nSub Class_Terminate\nFor k = 1 To 100 : Next\nEnd Sub\n"
                                   "Sub forks\nOn Error Resume Next\nforks\nforks\nEnd Sub\nEnd Class\n"
                                   "Sub fib(n)\nIf n > 1 Then\nfib n - 1\nfib n - 2\nEnd If\nEnd Sub";
        EXPECT_THAT(outcome(executor, console, module), testing::StartsWith("error 113 line ")) << body;
        executor.reset();
        EXPECT_EQ(outcome(executor, console, "PrintString \"next\""), "next\n");
    }
}

// The poll
// ---------------------------------------------------------------------------------------------------------------

TEST(Polls, StopAtTheVeryNextPollAfterAStop) {
    expectOutcomes("A stop is noticed by the very next poll (\"!\")",
                   pollStatement.substr(0, pollStatement.size() - 1));
}

TEST(Polls, AskTheHostOnlyWhenTheBudgetIsUsedUp) {
    Executor executor;
    ScriptConsole console;
    console.budgetPerAnswer = 100;
    outcome(executor, console, "For i = 1 To 10000\n" + pollStatement + "x = x + 1\n" + pollStatement + "Next");
    EXPECT_NEAR(console.asked, 100, 2);
}

TEST(Polls, NoticeAStopThatComesWhileTheyAreAsked) {
    class Stopping : public ScriptConsole {
      public:
        Value call(int member, Arguments& arguments) override {
            if (asked == 5) isRunning = false;
            return ScriptConsole::call(member, arguments);
        }
    };
    Executor executor;
    Stopping console;
    EXPECT_EQ(
        outcome(executor, console, "Sub Main\nDo\n" + pollStatement + "x = x + 1\n" + pollStatement + "Loop\nEnd Sub"),
        "error 1001 line 3\n");
}

// The host
// ---------------------------------------------------------------------------------------------------------------

TEST(Host, SeesMissingArgumentsAndSetsVariables) {
    Executor executor;
    ScriptConsole console;
    outcome(executor, console, "parentform.Note 1,,\"x\",");
    EXPECT_EQ(console.noted, (std::vector<std::string>{"1", "<missing>", "x", "<missing>"}));
    EXPECT_EQ(outcome("Sub Main\nInputString a\nDim b(2)\nInputString b(1)\nInputString (a)\nInputString \"text\"\n"
                      "byReference c\nPrintString a & b(1) & c\nEnd Sub\nSub byReference(p)\nInputString p\nEnd Sub"),
              "typedtypedtyped\n");
}

TEST(Host, CallsProceduresWithValuesAndTakesResults) {
    Executor executor;
    ASSERT_TRUE(
        executor.addCode("Function both(a, ByVal b)\na = a & \"!\"\nboth = a & b\nEnd Function\n"
                         "Dim total\nSub count : total = total + 1 : End Sub"));
    const Value arguments[] = {Value::text("x"), Value::longInteger(5)};
    Value result;
    ASSERT_TRUE(executor.run("BOTH", arguments, &result));
    EXPECT_EQ(executor.text(result), "x!5");
    EXPECT_EQ(arguments[0].view(), "x");
    EXPECT_FALSE(executor.run("both", {arguments, 1}));
    EXPECT_EQ(executor.error().number, errors::argumentCount);
    ASSERT_TRUE(executor.run("count") && executor.run("count"));
    ASSERT_TRUE(executor.evaluate("total * 21", result));
    EXPECT_EQ(executor.text(result), "42");
    EXPECT_EQ(executor.typeName(result), "Integer");
}

// Procedures of the first module meet what the second one declares.
TEST(Host, ALaterModuleGivesNamesTheirMeaning) {
    struct Case {
        const char* first;
        const char* second;
        const char* expected;
    };
    const Case cases[] = {
        {"Sub Test : PrintString twice(2) : End Sub", "Function twice(x) : twice = x * 2 : End Function", "4\n"},
        {"Sub Test : x = 5 : PrintString y : End Sub", "x = 1 : y = 2", "2\n"},
        {"Sub Test : PrintString Len(\"abc\") : End Sub", "Function Len(x) : Len = x & \"!\" : End Function", "abc!\n"},
        {"Sub Test : Set c = New Later : PrintString c.v : End Sub", "Class Later : Public v : End Class", "\n"},
        {"Sub Test : a = 1 : Change a : PrintString a : End Sub\nSub Change(x) : End Sub",
         "Sub Change(x) : x = x + 1 : End Sub", "2\n"},
        {"Class C : Sub Go : PrintString later : End Sub : End Class\nSub Test : Set o = New C : o.Go : End Sub",
         "Const later = \"later\"", "later\n"},
        {"Option Explicit\nSub Test : late = 3 : PrintString late : End Sub", "Dim late", "3\n"},
        {"x = 1\nSub Test : PrintString x : End Sub", "Dim x", "1\n"},
        {"Const k = 1\nSub Test : PrintString k : End Sub", "Const k = 2", "2\n"},
        {"Sub Test : PrintString where : End Sub", "where = 1 : Execute \"Sub More : where = 2 : End Sub\" : More",
         "2\n"},
        {"Sub Test : Make : PrintString made(1) : End Sub",
         "Sub Make : ExecuteGlobal \"Function made(x) : made = x + 1 : End Function\" : End Sub", "2\n"},
    };
    for (const Case& one : cases) {
        Executor executor;
        ScriptConsole console;
        executor.addObject("ParentForm", console, Executor::Members::AlsoGlobal);
        ASSERT_TRUE(executor.addCode(one.first) && executor.addCode(one.second)) << one.first;
        executor.run("Test");
        EXPECT_EQ(executor.error().number, 0) << one.first;
        EXPECT_THAT(console.lines, testing::ElementsAre(std::string(one.expected, std::strlen(one.expected) - 1)))
            << one.first;
    }
}

TEST(Host, ObjectsInVariablesBehaveAsTheirName) {
    EXPECT_EQ(outcome("Set p = ParentForm\np.PrintString p.DisplayWidth\np.Colour = \"red\"\nPrintString Colour\n"
                      "PrintString TypeName(p) & (p Is ParentForm)\np.nothing"),
              "640\nred\nParentFormTrue\nerror 438 line 6\n");
}

TEST(Host, ObjectsAreReplacedByNameBetweenRuns) {
    Executor executor;
    ScriptConsole first;
    ScriptConsole second;
    const char* module = "Sub Main\nPrintString Rnd & ParentForm.DisplayWidth\nEnd Sub";
    EXPECT_EQ(outcome(executor, first, module), "0.7055475640\n");
    EXPECT_EQ(outcome(executor, second, module), "0.533424640\n");
    EXPECT_EQ(first.lines.size(), 1U);
    executor.reset();
    EXPECT_EQ(outcome(executor, first, module), "0.7055475640\n0.7055475640\n");
}

TEST(Host, ValuesOutliveTheEngine) {
    Value text;
    Value object;
    {
        Executor executor;
        ASSERT_TRUE(
            executor.addCode("Class c\nPublic x\nSub Class_Terminate : x = 1 / 0 : End Sub\nEnd Class\n"
                             "Set o = New c\nSet o.x = o\ns = \"long\" & \" text\""));
        ASSERT_TRUE(executor.evaluate("s", text));
        ASSERT_TRUE(executor.evaluate("o", object));
    }
    EXPECT_EQ(text.view(), "long text");
    EXPECT_EQ(object.object()->typeName(), "Object");
}

}  // namespace
}  // namespace tolvan::script
