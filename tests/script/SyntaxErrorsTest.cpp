// Every error that a module's text can have: its number and line.

#include "script/ScriptConsole.h"
#include "support/Cases.h"

#include <gtest/gtest.h>

namespace tolvan::script {
namespace {

struct Case {
    int number;
    int line;
    std::string module;
};

std::string repeated(std::string_view text, std::size_t count) {
    std::string all;
    for (std::size_t i = 0; i < count; ++i) all += text;
    return all;
}

void expectRefused(const Case& one) {
    Executor executor;
    EXPECT_FALSE(executor.addCode(one.module)) << one.module.substr(0, 200);
    EXPECT_EQ(executor.error().number, one.number) << one.module.substr(0, 200);
    EXPECT_EQ(executor.error().line, one.line) << one.module.substr(0, 200);
    EXPECT_FALSE(executor.error().description.empty());
}

TEST(SyntaxErrors, HaveTheirNumberAndLine) {
    for (const Row& row : rowsOf("script/outcomes.cases", "The number and line of an error of syntax"))
        expectRefused({std::stoi(row[0]), std::stoi(row[1]), row[2]});
    const Case cases[] = {
        {1030, 1, std::string(256, 'n') + " = 1"},
        {1032, 2, "y = 1\nx = \x90"},
        {1032, 1, std::string("x = 1") + '\0'},
    };
    for (const Case& one : cases) expectRefused(one);
}

// Each limit ends in "out of memory", whatever it is that is too much.
TEST(SyntaxErrors, EndWhatIsTooDeepOrTooMuch) {
    const std::size_t many = 100'000;
    const Case cases[] = {
        {1001, 1, "x = " + std::string(many, '(') + "1" + std::string(many, ')')},
        {1001, 1, "x = " + repeated("-", many) + "1"},
        {1001, 1, "x = " + repeated("Not ", many) + "1"},
        {1001, 1, "x = 1" + repeated(" + 1", many)},
        {1001, 1, "x = 1" + repeated(" ^ 1", many)},
        {1001, 1, "x = a" + repeated("(1)", many)},
        {1001, 1, "x = a" + repeated(".b", many)},
        {1001, 1, "x = f(1" + repeated(", 1", many) + ")"},
        {1001, 1, "Sub s(a" + repeated(", a", many) + ")\nEnd Sub"},
        {1001, 1, repeated("If a Then ", many) + "b"},
    };
    for (const Case& one : cases) {
        Executor executor;
        EXPECT_FALSE(executor.addCode(one.module)) << one.module.substr(0, 40);
        EXPECT_TRUE(executor.error().number == 1001 || executor.error().number == 1041) << executor.error().number;
    }
    for (const char* block :
         {"If a Then\n", "While a\n", "Do\n", "For i = 1 To 2\n", "With a\n", "Select Case a\nCase 1\n"}) {
        Executor executor;
        EXPECT_FALSE(executor.addCode(repeated(block, many)));
        EXPECT_EQ(executor.error().number, 1001) << block;
    }
}

// What is just within the limits runs.
TEST(Limits, LeaveRoomForWhatPeopleWrite) {
    const std::pair<std::string, std::string> cases[] = {
        {"PrintString 1" + repeated(" + 1", 900), "901\n"},
        {"PrintString " + std::string(150, '(') + "7" + std::string(150, ')'), "7\n"},
        {"PrintString " + repeated("-", 150) + "7", "7\n"},
        {"PrintString 1" + repeated(" = 1", 900), "False\n"},
        {repeated("If 1 = 1 Then\n", 150) + "PrintString \"deep\"\n" + repeated("End If\n", 150), "deep\n"},
        {repeated("For i = 1 To 1\n", 150) + "PrintString i\n" + repeated("Next\n", 150), "1\n"},
        {"If 1 = 1" + repeated(" And 2 = 2", 900) + " Then PrintString \"all\"", "all\n"},
        {std::string(255, 'n') + " = 5\nPrintString " + std::string(255, 'N'), "5\n"},
        {"s = \"" + std::string(1'000'000, 'x') + "\"\nPrintString Len(s)", "1000000\n"},
        {"PrintString f(1" + repeated(", 1", 254) + ")\nFunction f(a" +
             [] {
                 std::string names;
                 for (int i = 0; i < 254; ++i) names += ", a" + std::to_string(i);
                 return names;
             }() +
             ")\nf = a + a253\nEnd Function",
         "2\n"},
    };
    for (const auto& [module, expected] : cases) EXPECT_EQ(outcome(module), expected) << module.substr(0, 60);
}

TEST(SyntaxErrors, LeaveNothingOfTheModuleBehind) {
    Executor executor;
    ASSERT_TRUE(executor.addCode("Function f\nf = 1\nEnd Function"));
    ASSERT_FALSE(executor.addCode("Function f\nf = 2\nEnd Function\nFunction g\nEnd Function\nx ="));
    EXPECT_FALSE(executor.hasProcedure("g"));
    Value result;
    ASSERT_TRUE(executor.run("f", {}, &result));
    EXPECT_EQ(executor.text(result), "1");
}

TEST(SyntaxErrors, CountEveryKindOfLineEnd) {
    for (const char* end : {"\r\n", "\n", "\r"}) {
        Executor executor;
        EXPECT_FALSE(executor.addCode("a = 1" + repeated(end, 3) + "b = _" + end + " 5" + end + "c ="));
        EXPECT_EQ(executor.error().line, 6);
    }
}

}  // namespace
}  // namespace tolvan::script
