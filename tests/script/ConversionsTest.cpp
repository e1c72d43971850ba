// Conversions between types, the text of numbers, and numbers and dates read from text.
#include "platform/script/Executor.h"
#include "script/Expression.h"

#include <gtest/gtest.h>

namespace tolvan::testing {
namespace {

TEST(Conversions, ToWholeNumbersRoundHalfToEven) {
    expectAll({
        {"CInt(2.5)", "Integer 2"},
        {"CInt(32767.4)", "Integer 32767"},
        {"CInt(32767.5)", "error 6"},
        {"CInt(-32768.5)", "Integer -32768"},
        {"CInt(True)", "Integer -1"},
        {"CInt(\" 12 \")", "Integer 12"},
        {"CInt(\"1.5\")", "Integer 2"},
        {"CInt(CCur(2.5))", "Integer 2"},
        {"CInt(#1/1/1900#)", "Integer 2"},
        {"CInt(Empty)", "Integer 0"},
        {"CInt(Null)", "error 94"},
        {"CInt(\"\")", "error 13"},
        {"CInt(\"True\")", "error 13"},
        {"CInt(Array())", "error 13"},
        {"CInt(Nothing)", "error 91"},
        {"CLng(2147483647.5)", "error 6"},
        {"CLng(2147483646.5)", "Long 2147483646"},
        {"CLng(\"&HFFFF\")", "Long 65535"},
        {"CLng(\"&HFFFFFFFF\")", "Long -1"},
        {"CInt(\"&HFFFF\")", "Integer -1"},
        {"CLng(\"&O17\")", "Long 15"},
        {"CLng(\"&17\")", "Long 15"},
        {"CLng(\"&O18\")", "error 13"},
        {"CLng(\"&H1FFFFFFFF\")", "error 6"},
        {"CByte(255.5)", "error 6"},
        {"CByte(254.5)", "Byte 254"},
        {"CByte(-0.5)", "Byte 0"},
        {"CByte(-1)", "error 6"},
        {"CByte(True)", "Byte 255"},
    });
}

TEST(Conversions, ToOtherTypes) {
    expectAll({
        {"CSng(0.1)", "Single 0.1"},
        {"CSng(1E39)", "error 6"},
        {"CSng(\"1.5\")", "Single 1.5"},
        {"CDbl(CSng(0.1))", "Double 0.100000001490116"},
        {"CDbl(\"-1.5D2\")", "Double -150"},
        {"CDbl(\"1E400\")", "error 6"},
        {"CDbl(\"1E-400\")", "Double 0"},
        {"CDbl(\"1/1/2000\")", "error 13"},
        {"CDbl(Null)", "error 94"},
        {"CCur(1.00005)", "Currency 1.0001"},
        {"CCur(0.00005)", "Currency 0"},
        {"CCur(\"0.00015\")", "Currency 0.0002"},
        {"CCur(\"0.000251\")", "Currency 0.0003"},
        {"CCur(\"-0.00005\")", "Currency 0"},
        {"CCur(\"-922337203685477.5808\")", "Currency -922337203685477.5808"},
        {"CCur(\"922337203685477.5807\")", "Currency 922337203685477.5807"},
        {"CCur(\"922337203685477.5808\")", "error 6"},
        {"CCur(1E15)", "error 6"},
        {"CCur(\"a\")", "error 13"},
        {"CBool(0)", "Boolean False"},
        {"CBool(0.1)", "Boolean True"},
        {"CBool(\" tRUE \")", "Boolean True"},
        {"CBool(\"False\")", "Boolean False"},
        {"CBool(\"0\")", "Boolean False"},
        {"CBool(\"#TRUE#\")", "Boolean True"},
        {"CBool(\"#true\")", "error 13"},
        {"CBool(\"yes\")", "error 13"},
        {"CBool(Empty)", "Boolean False"},
        {"CBool(Null)", "error 94"},
        {"CStr(Null)", "error 94"},
        {"CStr(Empty)", "String "},
        {"CStr(True)", "String True"},
        {"CStr(Array())", "error 13"},
        {"CDate(36526.75)", "Date 1/1/2000 6:00:00 PM"},
        {"CDate(\"36526\")", "Date 1/1/2000"},
        {"CDate(\"x\")", "error 13"},
        {"CDate(Null)", "error 94"},
        {"CDate(2958466)", "error 6"},
        {"CDate(-657434)", "Date 1/1/100"},
        {"CDate(-657435)", "error 6"},
    });
}

TEST(Conversions, NumbersAsText) {
    expectAll({
        {"CStr(1E15)", "String 1E+15"},
        {"CStr(999999999999999)", "String 999999999999999"},
        {"CStr(999999999999999.9)", "String 1E+15"},
        {"CStr(1234567890123456)", "String 1.23456789012346E+15"},
        {"CStr(0.0001)", "String 0.0001"},
        {"CStr(0.00001)", "String 1E-05"},
        {"CStr(-1.5E-7)", "String -1.5E-07"},
        {"CStr(1E100)", "String 1E+100"},
        {"CStr(1.7976931348623157E308)", "String 1.79769313486232E+308"},
        {"CStr(4.9E-324)", "String 4.94065645841247E-324"},
        {"CStr(0.1 + 0.2)", "String 0.3"},
        {"CStr(0 * -1.5)", "String 0"},
        {"CStr(0.000099999999999999999)", "String 0.0001"},
        {"CStr(CSng(1) / CSng(3))", "String 0.3333333"},
        {"CStr(CSng(12345678))", "String 1.234568E+07"},
        {"CStr(CSng(9999999))", "String 9999999"},
        {"CStr(CSng(0.00001))", "String 1E-05"},
        {"CStr(CSng(16777216) * CSng(512))", "String 8.589935E+09"},
        {"CStr(CCur(-0.5))", "String -0.5"},
        {"CStr(CCur(\"1234.5600\"))", "String 1234.56"},
        {"CStr(CCur(\"0.0001\"))", "String 0.0001"},
        {"CStr(CByte(7))", "String 7"},
        {"CStr(-2147483647 - 1)", "String -2147483648"},
    });
}

TEST(Conversions, TextsThatAreNumbers) {
    for (const char* number :
         {"1",    " 1",   "1 ",   "+1",  "- 1", "1-",  "(1)",   "$1",  "-$1", "$ 1.50", ".5",    "5.", "1,000", "1E5",
          "1e+5", "1D-5", "&HAb", "&o7", "0x",  "1 2", "1E",    "E5",  ".",   "",       " ",     "-",  "1-2",   "--1",
          "(1",   "1)",   "(-1)", "&H",  "&HG", "$",   "1.2.3", "1/2", "NaN", "inf",    "1E999", "1%", ",1"}) {
        SCOPED_TRACE(number);
        const std::string literal = '"' + std::string(number) + '"';
        const bool isNumeric = outcome("IsNumeric(" + literal + ")") == "Boolean True";
        const bool converts = outcome("CDbl(" + literal + ")").starts_with("Double");
        EXPECT_EQ(isNumeric, converts);
    }
    expectAll({
        {"CDbl(\"- 1\")", "Double -1"},
        {"CDbl(\"(1,234.5)\")", "Double -1234.5"},
        {"CDbl(\"1-\")", "Double -1"},
        {"CDbl(\"-$1.5\")", "Double -1.5"},
        {"CDbl(\".5\")", "Double 0.5"},
        {"CDbl(\"5.\")", "Double 5"},
        {"CDbl(\"000000000000000000000000000001\")", "Double 1"},
        {"CDbl(\"0.000000000000000000000000000001E30\")", "Double 1"},
        {"CDbl(\"&HAb\")", "Double 171"},
        {"IsNumeric(\"0x\")", "Boolean False"},
        {"IsNumeric(\"1 2\")", "Boolean False"},
        {"IsNumeric(\"1E\")", "Boolean False"},
        {"IsNumeric(\".\")", "Boolean False"},
        {"IsNumeric(\"\")", "Boolean False"},
        {"IsNumeric(\"--1\")", "Boolean False"},
        {"IsNumeric(\"(1\")", "Boolean False"},
        {"IsNumeric(\"inf\")", "Boolean False"},
        {"IsNumeric(\"1E999\")", "Boolean False"},
        {"IsNumeric(\"(1)\")", "Boolean True"},
        {"IsNumeric(\"1,000\")", "Boolean True"},
        {"IsNumeric(Empty)", "Boolean True"},
        {"IsNumeric(True)", "Boolean True"},
        {"IsNumeric(Null)", "Boolean False"},
        {"IsNumeric(#1/1/2000#)", "Boolean False"},
        {"IsNumeric(Array())", "Boolean False"},
    });
}

TEST(Conversions, CodesAndBases) {
    expectAll({
        {"Asc(\"A\")", "Integer 65"},
        {"AscW(Chr(200))", "Integer 200"},
        {"AscB(5)", "Integer 53"},
        {"Asc(\"\")", "error 5"},
        {"Asc(Null)", "error 94"},
        {"Len(Chr(0))", "Long 1"},
        {"ChrW(65)", "String A"},
        {"Chr(256)", "error 5"},
        {"Chr(-1)", "error 5"},
        {"ChrB(\"x\")", "error 13"},
        {"Hex(255)", "String FF"},
        {"Hex(-1)", "String FFFF"},
        {"Hex(CLng(-1))", "String FFFFFFFF"},
        {"Hex(-1.0)", "String FFFFFFFF"},
        {"Hex(10.5)", "String A"},
        {"Hex(Empty)", "String 0"},
        {"Hex(Null)", "Null"},
        {"Hex(\"a\")", "error 13"},
        {"Hex(3000000000)", "error 6"},
        {"Oct(8)", "String 10"},
        {"Oct(-1)", "String 177777"},
        {"Oct(CLng(-1))", "String 37777777777"},
    });
}

// Signs and points in angle brackets, yes and no for Booleans.
class MarkedForm : public script::TextForm {
  public:
    std::string number(std::string_view plain) const override {
        std::string text;
        for (const char c : plain) text += c >= '0' && c <= '9' ? std::string(1, c) : '<' + std::string(1, c) + '>';
        return text;
    }
    std::string date(std::string_view plain) const override { return "<" + std::string(plain) + ">"; }
    std::string boolean(bool on) const override { return on ? "yes" : "no"; }
    std::string plain(std::string_view text) const override {
        if (text == "yes") return "True";
        if (text == "no") return "False";
        std::string bare;
        for (const char c : text)
            if (c != '<' && c != '>') bare += c;
        return bare;
    }
    bool isPlain() const override { return false; }
};

TEST(Conversions, TheHostsTextFormGoesBothWays) {
    const MarkedForm form;
    script::Executor engine;
    engine.setTextForm(&form);
    const ExpressionRow rows[] = {
        {"-2.5", "<->2<.>5"},
        {"\"\" & 1E20", "1<E><+>20"},
        {"Len(-2.5)", "8"},
        {"Join(Array(CSng(0.5), CCur(-1), True))", "0<.>5 <->1 yes"},
        {"CDbl(\"<->2<.>5\") * 2", "<->5"},
        {"CCur(\"<->2<.>5\") + \"1<.>5\"", "<->1"},
        {"CInt(\"&<H>FFFF\")", "<->1"},
        {"CBool(\"yes\")", "yes"},
        {"Not CBool(\"no\")", "yes"},
        {"IsNumeric(\"<->2\")", "yes"},
        {"#1/1/2000#", "<1/1/2000>"},
        {"CDate(\"<1/1/2000>\") + 1", "<1/2/2000>"},
        {"IsDate(\"<1/1/2000>\")", "yes"},
        {"FormatNumber(-1234.5, 1)", "<->1<,>234<.>5"},
        {"FormatDateTime(#1/1/2000#, 4)", "<00:00>"},
        {"CInt(5) = \"5\"", "yes"},
        {"CStr(-5) = -5", "yes"},
    };
    for (const ExpressionRow& row : rows) {
        script::Value value;
        ASSERT_TRUE(engine.evaluate(row.expression, value)) << row.expression << ": " << engine.error().number;
        EXPECT_EQ(engine.text(value), row.outcome) << row.expression;
    }
}

}  // namespace
}  // namespace tolvan::testing
