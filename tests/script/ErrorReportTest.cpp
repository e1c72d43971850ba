// What the host is told about an error: what was called, the operands with their names, values and types, and the
// procedures that were running.

#include "platform/script/TextForm.h"
#include "script/ScriptConsole.h"

#include <gtest/gtest.h>

namespace tolvan::script {
namespace {

// "called [name=value:kind ...] procedure:line ...", the innermost procedure first.
std::string told(const ErrorReport& report) {
    std::string text = report.called + " [";
    for (const ErrorOperand& operand : report.operands)
        text += (text.back() == '[' ? "" : " ") + operand.name + "=" + operand.value + ":" + operand.kind;
    text += "]";
    for (const ErrorCall& call : report.stack) text += " " + call.procedure + ":" + std::to_string(call.line);
    return text;
}

TEST(ErrorReport, SaysWhatTookPart) {
    const std::tuple<const char*, int, const char*> cases[] = {
        {"Age = \"twelve\"\nx = Age + 1", 13, " [Age=twelve:String =1:Integer] :2"},
        {"Sub Main\na = 5 : b = 0\nx = a \\ b\nEnd Sub", 11, " [a=5:Integer b=0:Integer] Main:3"},
        {"Sub Main\na = Array(1) : b = 2\nx = a * (b + 1)\nEnd Sub", 13, " [a=:Variant() =3:Integer] Main:3"},
        {"Sub Main\na = \"x\"\nx = -a\nEnd Sub", 13, " [a=x:String] Main:3"},
        {"Sub Main\na = \"x\"\nx = Not a\nEnd Sub", 13, " [a=x:String] Main:3"},
        {"Sub Main\na = \"x\"\nIf a > 5 Then b = 1\nEnd Sub", 13, " [a=x:String =5:Integer] Main:3"},
        {"Sub Main\na = \"x\"\nIf a Then b = 1\nEnd Sub", 13, " [a=x:String] Main:3"},
        {"Sub Main\na = \"x\" : b = True\nx = a And b\nEnd Sub", 13, " [a=x:String b=True:Boolean] Main:3"},
        {"Sub Main\nDim t(3)\ni = 4\nx = t(i)\nEnd Sub", 9, " [t=:Variant() i=4:Integer] Main:4"},
        {"Dim t(3, 2)\nx = t(1, 7)", 9, " [t=:Variant() =1:Integer =7:Integer] :2"},
        {"Sub Main\nDim t(3)\nt(-1) = 5\nEnd Sub", 9, " [t=:Variant() =-1:Integer] Main:3"},
        {"Dim t(3)\nt(9) = 5", 9, " [t=:Variant() =9:Integer] :2"},
        {"Sub Main\nDim t(3)\ni = 2 : t(2) = \"two\"\nx = t(i) + 1\nEnd Sub", 13,
         " [t(i)=two:String =1:Integer] Main:4"},
        {"Dim t(3)\nt(2) = \"two\"\nx = 1 + t(2)", 13, " [t(2)=two:String =1:Integer] :3"},
        {"Sub Main\nn = 7\nx = n(2)\nEnd Sub", 13, " [n=7:Integer =2:Integer] Main:3"},
        {"Sub Main\nx = CDbl(\"1o\")\nEnd Sub", 13, "CDbl [=1o:String] Main:2"},
        {"n = -4\nx = Sqr(n)", 5, "Sqr [n=-4:Integer] :2"},
        {"x = Left(\"abc\")", 450, "Left [] :1"},
        {"x = name(\"abc\") * 2\nFunction name(n)\nname = n & \"!\"\nEnd Function", 13,
         " [name=abc!:String =2:Integer] :1"},
        {"f 1, 2\nSub f(a)\nEnd Sub", 450, "f [=1:Integer =2:Integer] :1"},
        {"Option Explicit\nnobody 1", 500, "nobody [] :2"},
        {"Const c = 1\nc = 2", 501, "c [] :2"},
        {"x = 5\nx.speak 1", 424, "speak [x=5:Integer =1:Integer] :2"},
        {"Set x = Nothing\nx.speak", 91, "speak [x=:Nothing] :2"},
        {"Class C\nEnd Class\nSet x = New C\nx.speak = 3", 438, "speak [x=:Object =3:Integer] :4"},
        {"Set x = 7", 424, " [=7:Integer] :1"},
        {"Set x = New Nobody", 506, "Nobody [] :1"},
        {"Execute \"\"\nSet x = New Nobody", 506, "Nobody [] :2"},
        {"Execute \"\"\nx = 3\nx 4", 13, "x [=4:Integer] :3"},
        {"ParentForm.Fail 62", 62, "Fail [=62:Integer] :1"},
        {"PrintString", 450, "PrintString [] :1"},
        {"Sub Main\nFor i = 1 To \"x\"\nNext\nEnd Sub", 13, " [i=1:Integer =x:String =1:Integer] Main:2"},
        {"Sub Main\nFor Each x In 5\nNext\nEnd Sub", 451, " [=5:Integer] Main:2"},
        {"Sub Main\na = 32767 : b = \"2x\"\na = a + b\nEnd Sub", 13, " [a=32767:Integer b=2x:String] Main:3"},
        {"Class C\nPublic n\nSub s\nx = n - 1\nEnd Sub\nEnd Class\nSet o = New C\no.n = \"x\"\no.s", 13,
         " [n=x:String =-1:Integer] s:4 :9"},
        {"Sub g(byRefText)\nbyRefText = byRefText * 2\nEnd Sub\nSub Main\nt = \"x\"\ng t\nEnd Sub", 13,
         " [byRefText=x:String =2:Integer] g:2 Main:6"},
        {"Err.Raise 1001", 1001, " [] :1"},
        {"Sub Main\nx = 1\nf x\nEnd Sub\nSub f(n)\ny = g(n)\nEnd Sub\nFunction g(n)\n\ng = n / 0\nEnd Function", 11,
         " [n=1:Integer =0:Integer] g:10 f:6 Main:3"},
        {"Class C\nPublic Default Property Get v\nv = 1 / 0\nEnd Property\nEnd Class\nSub Main\nSet o = New C\n"
         "x = o + 1\nEnd Sub",
         11, " [=1:Integer =0:Integer] v:3 Main:8"},
        {"Sub Main\nExecute \"x = 1 : y = x \\ 0\"\nEnd Sub", 11, " [=1:Integer =0:Integer] :1 Main:2"},
        {"Sub Main\nOn Error Resume Next\na = 1 / 0\nOn Error GoTo 0\nb = \"x\"\nc = b ^ 2\nEnd Sub", 13,
         " [b=x:String =2:Integer] Main:6"},
        {"Class C\nSub Class_Terminate\nx = 1 Mod 0\nEnd Sub\nEnd Class\nSub f\nSet o = New C\nx = 1 / 0\nEnd Sub\nf",
         11, " [=1:Integer =0:Integer] f:8 :10"},
        {"x = (", 1023, " []"},
    };
    for (const auto& [module, number, expected] : cases) {
        Executor executor;
        ScriptConsole console;
        outcome(executor, console, module);
        EXPECT_EQ(executor.error().number, number) << module;
        EXPECT_EQ(told(executor.error()), expected) << module;
    }
}

TEST(ErrorReport, IsLimitedInSizeAndUsesTheTextForm) {
    struct Words : TextForm {
        std::string number(std::string_view plain) const override { return "<" + std::string(plain) + ">"; }
    };
    const Words words;
    Executor executor;
    executor.setTextForm(&words);
    executor.addCode(
        "Sub Main\nx = 2.5 / 0\nEnd Sub\nSub Text\nx = String(1000, \"x\") * 2\nEnd Sub\nSub f\nf\nEnd Sub");
    executor.run("Main");
    EXPECT_EQ(told(executor.error()), " [=<2.5>:Double =<0>:Integer] Main:2");
    executor.run("Text");
    EXPECT_EQ(executor.error().operands.at(0).value, std::string(ErrorOperand::longestValue, 'x'));
    executor.run("f");
    EXPECT_EQ(executor.error().stack.size(), ErrorReport::deepestStack);
    executor.run("Nobody");
    EXPECT_EQ(told(executor.error()), "Nobody []");
}

}  // namespace
}  // namespace tolvan::script
