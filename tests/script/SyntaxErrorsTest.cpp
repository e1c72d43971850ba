// Every error that a module's text can have: its number and line.

#include "script/ScriptConsole.h"

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
    const Case cases[] = {
        {505, 1, "x = .y"},
        {505, 3, "With x\nEnd With\n.y = 1"},
        {1002, 1, "Option Base"},
        {1002, 1, "On Fire Resume Next"},
        {1002, 1, "On Error GoTo 1"},
        {1002, 2, "\nx = #no date#"},
        {1002, 4, "Select Case 1\nCase Else\n\nCase 2\nEnd Select"},
        {1005, 1, "ReDim a"},
        {1006, 1, "x = (1 + 2"},
        {1006, 1, "x = f(1, 2"},
        {1006, 1, "Sub s(a, b\nEnd Sub"},
        {1007, 1, "[x = 1"},
        {1010, 1, "Dim 5"},
        {1010, 1, "Dim While"},
        {1010, 1, "Call 5"},
        {1010, 1, "Set = 5"},
        {1010, 1, "For 1 = 2 To 3"},
        {1010, 1, "Call (f)"},
        {1011, 1, "Set x 5"},
        {1011, 1, "Const c 5"},
        {1011, 1, "For i To 5\nNext"},
        {1012, 4, "If x Then\ny = 1\n\nEnd Sub"},
        {1013, 1, "For i = 1\nNext"},
        {1014, 3, "Sub s\nx = 1\n"},
        {1014, 2, "If x Then\n"},
        {1014, 2, "Sub s\nSub t\nEnd Sub\nEnd Sub"},
        {1014, 3, "Sub s\nx = 1\nWend\nEnd Sub"},
        {1014, 2, "Class c\n"},
        {1015, 2, "Function f\nEnd Sub"},
        {1016, 2, "Sub s\nEnd Function"},
        {1016, 2, "Sub s\nEnd\nEnd Sub"},
        {1017, 1, "If x\ny = 1\nEnd If"},
        {1017, 2, "If x Then\nElseIf y\nEnd If"},
        {1018, 3, "While x\ny = 1\nEnd If"},
        {1018, 2, "Sub s : While x\nEnd Sub"},
        {1019, 2, "Do\nWend"},
        {1020, 2, "For i = 1 To 2\nEnd"},
        {1020, 1, "On Error Resume"},
        {1021, 1, "Select x"},
        {1021, 2, "Select Case x\ny = 1\nEnd Select"},
        {1022, 3, "Select Case x\nCase 1\nEnd If"},
        {1023, 1, "x = "},
        {1023, 1, "x = 1 + * 2"},
        {1023, 1, "If Then"},
        {1024, 1, "5 = x"},
        {1024, 1, "+"},
        {1024, 2, "\n) x"},
        {1024, 1, "Wend"},
        {1024, 1, "Else"},
        {1024, 2, "Sub s\nPrivate x\nEnd Sub"},
        {1024, 2, "Class c\nx = 1\nEnd Class"},
        {1025, 1, "x = 1 2"},
        {1025, 1, "x = 5 y = 6"},
        {1025, 1, "Dim x y"},
        {1025, 2, "For i = 1 To 2\nNext i"},
        {1025, 1, "While x y"},
        {1026, 1, "Dim a(n)"},
        {1026, 1, "Dim a(1.5)"},
        {1028, 1, "Do x"},
        {1028, 2, "Do\nLoop x"},
        {1025, 2, "Do While a\nLoop While b"},
        {1029, 2, "With x\nEnd If"},
        {1030, 1, std::string(256, 'n') + " = 1"},
        {1031, 1, "x = 1e"},
        {1031, 1, "x = 1e999"},
        {1031, 1, "x = &HG"},
        {1031, 1, "x = &H123456789"},
        {1031, 1, "x = &O8"},
        {1032, 1, "x = ?"},
        {1032, 1, "_x = 1"},
        {1032, 2, "y = 1\nx = \x90"},
        {1032, 1, std::string("x = 1") + '\0'},
        {1033, 1, "x = \"abc"},
        {1033, 2, "\nx = \"abc\"\"\n\""},
        {1037, 1, "x = Me"},
        {1038, 2, "x = 1\nLoop"},
        {1039, 1, "Exit Sub"},
        {1039, 2, "Sub s\nExit Function\nEnd Sub"},
        {1039, 1, "Exit For"},
        {1039, 2, "While x\nExit Do\nWend"},
        {1039, 2, "For i = 1 To 2\nExit While\nNext"},
        {1040, 1, "For a(1) = 1 To 2\nNext"},
        {1041, 2, "Dim x\nDim X"},
        {1041, 2, "Sub s\nDim x, x\nEnd Sub"},
        {1041, 1, "Sub s(a, A)\nEnd Sub"},
        {1041, 2, "Sub s(a)\nDim a\nEnd Sub"},
        {1041, 2, "Const x = 1\nFunction x\nEnd Function"},
        {1042, 1, "If a Then If b Then\nx = 1\nEnd If"},
        {1042, 2, "If a Then\nIf b Then x = 1 Else If c Then\nx = 1\nEnd If\nEnd If"},
        {1044, 1, "f(1, 2)"},
        {1044, 2, "\nparentform.f (1, 2)"},
        {1045, 1, "Const c = x"},
        {1025, 1, "Const c = 1 + 1"},
        {1046, 1, "For Each x Of y\nNext"},
        {1047, 2, "Class c\nEnd Sub"},
        {1048, 1, "Property Get x\nEnd Property"},
        {1048, 1, "Public Default Function x\nEnd Function"},
        {1049, 2, "Class c\nProperty x\nEnd Property\nEnd Class"},
        {1050, 3, "Class c\nProperty Get x\nEnd Sub\nEnd Class"},
        {1051, 4, "Class c\nProperty Get x(i)\nEnd Property\nProperty Let x(v)\nEnd Property\nEnd Class"},
        {1052, 3, "Class c\nPublic Default Sub a : End Sub\nPublic Default Sub b : End Sub\nEnd Class"},
        {1053, 2, "Class c\nSub Class_Initialize(x)\nEnd Sub\nEnd Class"},
        {1054, 2, "Class c\nProperty Let x\nEnd Property\nEnd Class"},
        {1055, 1, "Next"},
        {1055, 3, "While x\ny = 1\nNext"},
        {1056, 2, "Class c\nPublic Default x\nEnd Class"},
        {1057, 2, "Class c\nDefault Sub x\nEnd Sub\nEnd Class"},
        {1058, 2, "Class c\nPublic Default Property Let x(v)\nEnd Property\nEnd Class"},
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
