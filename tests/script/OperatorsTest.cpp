// The operators: what type a result has, what it is, and which error it raises instead.
#include "script/Expression.h"

#include <gtest/gtest.h>

namespace tolvan::testing {
namespace {

TEST(Operators, SumsTakeTheMorePreciseType) {
    expectAll({
        {"1 + 2", "Integer 3"},
        {"2147483647 + 1", "Double 2147483648"},
        {"1 + 2.5", "Double 3.5"},
        {"CByte(200) + CByte(56)", "Integer 256"},
        {"CSng(1.5) + 1", "Single 2.5"},
        {"CSng(1.5) + 100000", "Double 100001.5"},
        {"CSng(3E38) + CSng(3E38)", "Double 6.00000001099551E+38"},
        {"CSng(1.5) + 1.25", "Double 2.75"},
        {"CCur(1.5) + 1", "Currency 2.5"},
        {"CCur(1.5) + 1.25", "Currency 2.75"},
        {"CCur(1.5) + \"1.00005\"", "Currency 2.5"},
        {"CCur(\"922337203685477.5807\") + 1", "error 6"},
        {"CCur(\"-922337203685477.5808\") - CCur(\"0.0001\")", "error 6"},
        {"1E308 + 1E308", "error 6"},
        {"True + True", "Integer -2"},
        {"True - False", "Integer -1"},
        {"Empty + Empty", "Integer 0"},
        {"Empty + CByte(7)", "Byte 7"},
        {"Empty - 7", "Integer -7"},
        {"Null + 1", "Null"},
        {"1 - Null", "Null"},
        {"Null + \"a\"", "Null"},
        {"Array(1) + 1", "error 13"},
        {"Null + Array(1)", "error 13"},
        {"Nothing + 1", "error 91"},
    });
}

TEST(Operators, PlusJoinsTextsAndAddsATextToANumber) {
    expectAll({
        {"\"1\" + \"2\"", "String 12"},
        {"\"a\" + Empty", "String a"},
        {"Empty + \"a\"", "String a"},
        {"1 + \"2\"", "Double 3"},
        {"\"2.5\" + 1", "Double 3.5"},
        {"1 + \"a\"", "error 13"},
        {"1 + \"\"", "error 13"},
        {"\"3\" - \"2\"", "Double 1"},
        {"\"a\" - \"2\"", "error 13"},
        {"True + \"1\"", "Double 0"},
        {"\"&HFFFF\" + 0", "Double 65535"},
        {"\" 1,234.5 \" + 0", "Double 1234.5"},
        {"\"1E400\" + 0", "error 6"},
    });
}

TEST(Operators, DatesInArithmetic) {
    expectAll({
        {"#2/28/2004# + 1", "Date 2/29/2004"},
        {"1 + #2/28/2004#", "Date 2/29/2004"},
        {"#2/28/2004# - 1.5", "Date 2/26/2004 12:00:00 PM"},
        {"#3/1/2004# - #2/28/2004#", "Double 2"},
        {"#1/1/2000# + #12:00 PM#", "Date 1/1/2000 12:00:00 PM"},
        {"#1/1/2000# + \"1\"", "Date 1/2/2000"},
        {"#1/1/2000# + True", "Date 12/31/1999"},
        {"#1/2/1900# * 2", "Double 6"},
        {"#12/31/9999# + 1", "error 6"},
        {"#1/1/100# - 1", "error 6"},
        {"-#1/1/1900#", "Date 12/28/1899"},
    });
}

TEST(Operators, ProductsAndQuotients) {
    expectAll({
        {"True * True", "Integer 1"},
        {"CCur(1.5) * 2", "Currency 3"},
        {"CCur(1.5) * 2.5", "Double 3.75"},
        {"CCur(\"0.0001\") * CCur(0.5)", "Currency 0"},
        {"CCur(\"0.0003\") * CCur(0.5)", "Currency 0.0002"},
        {"CCur(\"-0.0003\") * CCur(0.5)", "Currency -0.0002"},
        {"CCur(\"922337203685477\") * 2", "error 6"},
        {"CSng(1.1) * CSng(1.1)", "Single 1.21"},
        {"\"2\" * \"3\"", "Double 6"},
        {"Empty * \"3\"", "Double 0"},
        {"Null * 2", "Null"},
        {"1E200 * 1E200", "error 6"},
        {"6 / 3", "Double 2"},
        {"1 / 3", "Double 0.333333333333333"},
        {"CSng(1) / 3", "Single 0.3333333"},
        {"CSng(1) / 100000", "Double 1E-05"},
        {"1 / CSng(4)", "Single 0.25"},
        {"CCur(1) / CCur(4)", "Double 0.25"},
        {"1 / 0", "error 11"},
        {"0 / 0", "error 6"},
        {"1.5 / Empty", "error 11"},
        {"Null / 0", "Null"},
        {"1E-300 / 1E300", "Double 0"},
    });
}

TEST(Operators, WholeDivisionRoundsItsOperandsHalfToEven) {
    expectAll({
        {"-7 \\ 2", "Integer -3"},
        {"7.5 \\ 2", "Long 4"},
        {"6.5 \\ 2", "Long 3"},
        {"CLng(-2147483648) \\ -1", "error 6"},
        {"CLng(-2147483648) Mod -1", "Long 0"},
        {"1 \\ 0", "error 11"},
        {"1 \\ 0.4", "error 11"},
        {"0 \\ 0", "error 11"},
        {"3000000000 \\ 2", "error 6"},
        {"\"9\" \\ \"2\"", "Long 4"},
        {"Null \\ 0", "Null"},
        {"-10 Mod 3", "Integer -1"},
        {"12.6 Mod 5", "Long 3"},
        {"True Mod 2", "Integer -1"},
        {"5 Mod 0", "error 11"},
        {"\"a\" Mod 2", "error 13"},
    });
}

TEST(Operators, Powers) {
    expectAll({
        {"2 ^ 10", "Double 1024"},
        {"2 ^ -1", "Double 0.5"},
        {"(-8) ^ 3", "Double -512"},
        {"(-8) ^ 0.5", "error 5"},
        {"0 ^ 0", "Double 1"},
        {"0 ^ -1", "error 5"},
        {"10 ^ 400", "error 6"},
        {"\"2\" ^ 3", "Double 8"},
        {"Null ^ 2", "Null"},
    });
}

TEST(Operators, UnaryMinus) {
    expectAll({
        {"-Empty", "Integer 0"},
        {"-True", "Integer 1"},
        {"-CByte(5)", "Integer -5"},
        {"-CInt(-32768)", "Long 32768"},
        {"-CLng(-2147483648)", "Double 2147483648"},
        {"-\"2.5\"", "Double -2.5"},
        {"-CSng(2.5)", "Single -2.5"},
        {"-CCur(\"-922337203685477.5808\")", "error 6"},
        {"-Null", "Null"},
        {"-\"a\"", "error 13"},
        {"-Array()", "error 13"},
    });
}

TEST(Operators, Joining) {
    expectAll({
        {"1 & 2", "String 12"},
        {"\"a\"&1", "String a1"},
        {"(2)&17&\"\"", "String 217"},
        {"Hex(255)&Hex(16)", "String FF10"},
        {"\"a\" & Null", "String a"},
        {"Null & \"a\"", "String a"},
        {"Null & 5", "String 5"},
        {"Null & Null", "Null"},
        {"Empty & Empty", "String "},
        {"True & \"!\"", "String True!"},
        {"1.5 & #1/1/2000#", "String 1.51/1/2000"},
        {"Array() & 1", "error 13"},
        {"Nothing & \"a\"", "error 91"},
    });
}

TEST(Operators, LogicOnBooleansAndBits) {
    expectAll({
        {"True And False", "Boolean False"},
        {"True Or False", "Boolean True"},
        {"True Xor True", "Boolean False"},
        {"True Eqv False", "Boolean False"},
        {"True Imp False", "Boolean False"},
        {"False Imp False", "Boolean True"},
        {"Not False", "Boolean True"},
        {"12 And 10", "Integer 8"},
        {"12 Imp 10", "Integer -5"},
        {"Not 5", "Integer -6"},
        {"Not 100000", "Long -100001"},
        {"Not CByte(1)", "Byte 254"},
        {"CByte(12) Imp 10", "Integer -5"},
        {"True And 6", "Integer 6"},
        {"7 And 65536", "Long 0"},
        {"7.5 And 15", "Long 8"},
        {"\"6\" And 3", "Long 2"},
        {"Empty Or 5", "Integer 5"},
        {"Empty Or True", "Integer -1"},
        {"Not Empty", "Integer -1"},
        {"Not \"0\"", "Long -1"},
        {"3000000000 And 1", "error 6"},
        {"\"a\" And 1", "error 13"},
        {"True Or Array()", "error 13"},
        {"Not Nothing", "error 91"},
    });
}

TEST(Operators, NullIsDecidedByTheOtherOperandWhereThatCanBe) {
    expectAll({
        {"Null And False", "Boolean False"},
        {"False And Null", "Boolean False"},
        {"Null And True", "Null"},
        {"0 And Null", "Integer 0"},
        {"5 And Null", "Null"},
        {"Null Or True", "Boolean True"},
        {"Null Or False", "Null"},
        {"Null Or 5", "Integer 5"},
        {"Null Or Null", "Null"},
        {"Null Xor True", "Null"},
        {"Null Eqv False", "Null"},
        {"False Imp Null", "Boolean True"},
        {"True Imp Null", "Null"},
        {"Null Imp True", "Boolean True"},
        {"Null Imp False", "Null"},
        {"Null Imp Null", "Null"},
        {"Not Null", "Null"},
        {"Null And \"a\"", "error 13"},
    });
}

TEST(Operators, ComparisonOfNumbers) {
    expectAll({
        {"1 = 1.0", "Boolean True"},
        {"True = -1", "Boolean True"},
        {"Empty = 0", "Boolean True"},
        {"Empty = \"\"", "Boolean True"},
        {"Empty = Empty", "Boolean True"},
        {"Empty < 1", "Boolean True"},
        {"Empty < \"a\"", "Boolean True"},
        {"\"a\" > Empty", "Boolean True"},
        {"Empty = False", "Boolean True"},
        {"CSng(0.1) = 0.1", "Boolean True"},
        {"CSng(0.1) = CDbl(CSng(0.1))", "Boolean True"},
        {"CCur(0.1) = 0.1", "Boolean True"},
        {"CCur(1) < 1.00004", "Boolean False"},
        {"CCur(1) < 1E300", "Boolean True"},
        {"CCur(\"922337203685477.5807\") > CCur(\"922337203685477.5806\")", "Boolean True"},
        {"#1/1/2000# > 36525", "Boolean True"},
        {"#1/1/2000# = 36526", "Boolean True"},
        {"2147483647 < 2147483648", "Boolean True"},
        {"Null = Null", "Null"},
        {"Null <> 1", "Null"},
        {"\"a\" < Null", "Null"},
        {"1 < Array()", "error 13"},
        {"Nothing = 1", "error 91"},
    });
}

TEST(Operators, ComparisonWithTexts) {
    expectAll({
        {"\"a\" < \"b\"", "Boolean True"},
        {"\"a\" < \"A\"", "Boolean False"},
        {"\"ab\" > \"a\"", "Boolean True"},
        {"Chr(200) > \"z\"", "Boolean True"},
        // Both computed: a number is below every text.
        {"CInt(5) = CStr(5)", "Boolean False"},
        {"CInt(5) < CStr(1)", "Boolean True"},
        {"CStr(1) > CInt(5)", "Boolean True"},
        {"CDate(1) < CStr(0)", "Boolean True"},
        // A literal number reads the text, a literal text is what the number is written as.
        {"CStr(5) = 5", "Boolean True"},
        {"5 = CStr(5)", "Boolean True"},
        {"CStr(10) > 9", "Boolean True"},
        {"9 < CStr(10)", "Boolean True"},
        // Two literals.
        {"9 < \"10\"", "Boolean True"},
        {"\"10\" < 9", "Boolean False"},
        {"10 = \"10\"", "Boolean False"},
        {"\"abc\" = True", "Boolean False"},
        {"\"abc\" > -5", "Boolean True"},
        {"#1/1/2000# < \"\"", "Boolean True"},
        {"CStr(\"a\") = 5", "error 13"},
        {"CInt(5) = \"5\"", "Boolean True"},
        {"CInt(10) < \"9\"", "Boolean True"},
        {"\"9\" > CInt(10)", "Boolean True"},
        {"CStr(True) = True", "Boolean True"},
        {"CBool(1) = \"True\"", "Boolean True"},
        {"CStr(\"1/1/2000\") = #1/1/2000#", "Boolean True"},
        {"CDate(36526) = \"1/1/2000\"", "Boolean True"},
    });
}

}  // namespace
}  // namespace tolvan::testing
