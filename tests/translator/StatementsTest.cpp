// One statement each, worked out by hand: what the line is taken for, what is cut out of it, and every blank.

#include "platform/encoding/Deva.h"
#include "translator/Modules.h"
#include "translator/Styled.h"
#include "translator/Translator.h"

#include <gtest/gtest.h>

namespace tolvan {
namespace {

struct Row {
    std::string_view line;    // internal text form
    std::string_view script;  // "@1", "@2"... are the first names of the program
};

std::string module(std::string_view statement) {
    return moduleText("Sub Main()\n!\n" + std::string(statement) + "\nEnd Sub\n");
}

template <std::size_t N>
void expectStatements(const Row (&rows)[N]) {
    Translator translator;
    for (const Row& row : rows) EXPECT_EQ(translator.Compile(styled(row.line)), module(row.script)) << row.line;
}

TEST(Statements, WordByWord) {
    expectStatements({
        {"x{=}1"_deva, "@1=1"},
        {"x=1"_deva, "@1"},
        {"  x   {=} y x "_deva, "@1   = @2 @1"},
        {"kaera"_deva, "parentform.ClearScreen"},
        {"nav {=} \"e {(}nav{)}"_deva, "@1 = parentform.InputString (@1)"},
        {"jr x{ < }10 Aai[ nahI y tr"_deva, "IF @1 < 10 AND NOT @2 THEN"},
        {"nahItrjr x lhan y vja 2 tr"_deva, "ELSEIF @1 < @2 - 2 THEN"},
        {"puFca A<k"_deva, "NEXT ' @1"},
        {"jaevr x maeQa 5 taevr"_deva, "WHILE @1 > 5"},
        {"b<d nav"_deva, "parentform.FileCLOSE ' @1"},
        {"%\"f {\"}nav{\", }vac\\{yasaQI"_deva, "parentform.FileOPEN \"nav\", 1"},
        {"x1 {x_1 X1}"_deva, "@1 @2 @3"},
        {"daovn daov_ Daov"_deva, "@1 @2 @3"},
    });
}

TEST(Statements, FontsDecideWhatIsAnOperator) {
    expectStatements({
        {"s<pv"_deva, "END"},
        {"s{<}pv"_deva, "@1<@2"},
        {"y -aigle 2"_deva, "@1 / 2"},
        {"y {-}aigle 2"_deva, "@1 -@2 2"},
        {"a - b + c * d / e < f > g = h"_deva, "@1 - @2 + @3 * @4 / @5 < @6 > @7 = @8"},
        {"a{+}b{-}c"_deva, "@1+@2-@3"},
        {"a+b a-b"_deva, "@1 @2"},
        {"{a\tb'c}"_deva, "@1\t@2'@3"},
    });
}

TEST(Statements, Numbers) {
    expectStatements({
        {"10 3.5 3{.}5 007"_deva, "10 3.5 3.5 007"},
        {"-5 +5 1e5 1E-3 -2.5e+10"_deva, "-5 +5 1e5 1E-3 -2.5e+10"},
        {"1e e5 1.2.3 5x --5 1."_deva, "@1 @2 @3 @4 @5 @6"},
    });
}

TEST(Statements, Literals) {
    expectStatements({
        {"daov {\"}nmSkar{\"}"_deva, "parentform.PrintString \"nmSkar\""},
        {"daov {\"Hello, World\"}"_deva, "parentform.PrintString \"{Hello, World}\""},
        {"daov {\"}ha {\\{}k{\\} }\\{ \"r{\"}"_deva,
         "parentform.PrintString \"ha {\\{}k{\\} }\\{ \" & chr(34) & \"r\""},
        {"daov {\"\"}"_deva, "parentform.PrintString \"\""},
        {"daov {\"}daov  jr{\" & \"1\"}"_deva, "parentform.PrintString \"daov  jr\" & \"{1}\""},
        {"daov {\"}a{\"}b{\"}c{\"}"_deva, "parentform.PrintString \"a\"@1\"c\""},
        {"daov {\"}nmSkar"_deva, "parentform.PrintString \""},
        {"daov \"nmSkar\" \""_deva, "parentform.PrintString \"nmSkar\" \""},
    });
}

TEST(Statements, OtherFontsAreGlyphsInWordsAndLatinInLiterals) {
    StyledText line("x=1 ", Font::Other);
    line.append("\"", Font::Latin);
    line.append("a<", Font::Other);
    line.append("b\"", Font::Latin);
    EXPECT_EQ(Translator().Compile(line), module("@1 \"{a<b}\""));
}

TEST(Statements, Comment) {
    expectStatements({
        {"x {=} 1 sucna he 1 te 2 saQI"_deva, "@1 = 1"},
        {"xsucna"_deva, ""},
        {"sucna he kmI haete"_deva, ""},
        {"daov {\"}hI sucna Aahe{\"}"_deva, "parentform.PrintString \""},
        {"x saQI 1 te 5 sucna 6"_deva, "for @1 =   1  to   5"},
    });
    EXPECT_EQ(Translator().TranslateLine(styled("{1 sucna 2}"_deva)), "  1 ") << "one blank more than another line";
}

TEST(Statements, CountedLoop) {
    expectStatements({
        {"A<k saQI 1 te 10 py¡t"_deva, "for @1 =   1  to   10"},
        {"A<k py¡t saQI  s{+}1 te {(}10{)}"_deva, "for @1 =    @2+1  to   (10)"},
        {"x saQI A py¡t te py¡tB"_deva, "for @1 =   @2   to   @3"},
        {" saQI 1 te 2"_deva, "for @1 =   1  to   2"},
        {"x te 5 saQI 7"_deva, "for @1 =    to   5 @2 7"},
        {"x saQI te 5"_deva, "for @1 =    to   5"},
        {"daov {\"}x saQI 1 te 2{\"}"_deva, "for @1 =   1  to   2\""},
        {"x saQI 1 te y saQI 2 te 3"_deva, "for @1 =   1  to for @2 =   2  to   3"},
        {"x saQI 1 te spy¡tucna 5"_deva, "for @1 =   1  to"},
        {"x saQI 1 te2"_deva, "@1 @2 1 @3"},
    });
}

TEST(Statements, Line) {
    expectStatements({
        {"{(}0{, }y{)} pasun {(}30{, }40{)} py¡t r<g{(}1{, }2{, }3{)} r<gacI re\" Aao"_deva,
         "parentform.DrawLine  30, 40 , 0, @1 , RGB(1, 2, 3)"},
        {"{(}x{,}0{)} pasun {(}y{,}x{)} py¡t re\" Aao"_deva, "parentform.DrawLine  @1,@2 , @2,0"},
        {"{(}30{, }40{)} py¡t re\" Aao"_deva, "parentform.DrawLine  30, 40"},
        {"{(}30{, }40{)} py¡t  255  r<gacI re\" Aao"_deva, "parentform.DrawLine  30, 40 ,,, 255"},
        {"py¡t re\" Aao"_deva, "parentform.DrawLine"},
        {"5 py¡t re\" Aao"_deva, "parentform.DrawLine"},
        {"py¡t re\" Aao {(}1{, }2{)} pasun"_deva, "parentform.DrawLine   , @1 @2 @3 (1, 2"},
        {"{(}1{)} pasun {(}2{)} r<gacI {(}3{)} py¡t re\" Aao"_deva, "parentform.DrawLine  2) @1 (3 , 1 ,"},
        {"Aaore\"py¡t"_deva, "parentform.DrawLine"},
        {"{(}1{)} py¡t{(}2{)} py¡t re\" Aao"_deva, "parentform.DrawLine  1) @1(2"},
    });
}

TEST(Statements, Box) {
    expectStatements({
        {"{(}0{, }0{)} pasun {(}30{, }40{)} py¡t 255 r<gace -rlele Aayt kaF"_deva,
         "parentform.DrawBox  30, 40 , 0, 0 , 255 , TRUE"},
        {"{(}0{, }0{)} pasun {(}30{, }40{)} py¡t 255 r<gace Aayt kaF"_deva, "parentform.DrawBox  30, 40 , 0, 0 , 255"},
        {"{(}0{, }0{)} pasun {(}30{, }40{)} py¡t -rlele Aayt kaF"_deva, "parentform.DrawBox  30, 40 , 0, 0 , TRUE"},
        {"{(}30{, }40{)} py¡t 255 r<gace -rlele Aayt kaF"_deva, "parentform.DrawBox  30, 40 ,,, 255 , TRUE"},
        {"{(}30{, }40{)} py¡t -rlele Aayt kaF"_deva, "parentform.DrawBox  30, 40 , TRUE"},
        {"{(}30{, }40{)} py¡t Aayt kaF"_deva, "parentform.DrawBox  30, 40"},
        {"{(}30{, }40{)} py¡t 255 r<gacI Aayt kaF"_deva, "parentform.DrawBox  30, 40"},
    });
}

TEST(Statements, Point) {
    expectStatements({
        {"{(}5{, }6{)} vr ib<Ë kaF"_deva, "ParentForm.DrawPoint  5, 6"},
        {"{(}x{, }6{)} vr y r<gaca ib<Ë kaF"_deva, "ParentForm.DrawPoint  @1, 6 ,  @2"},
        {"{(}5{, }6{)} vr r<gaca ib<Ë kaF"_deva, "ParentForm.DrawPoint  5, 6 ,"},
        {"{(}5{, }6{)} ib<Ë kaF"_deva, "ParentForm.DrawPoint"},
        {"a 7 r<gaca ib<Ë kaF"_deva, "ParentForm.DrawPoint   ,  7"},
        {"r<gaca {(}5{, }6{)} vr ib<Ë kaF"_deva, "ParentForm.DrawPoint  @1 (5, 6 ,"},
        {"{(}5{, }6{)} vr ib<Ë_ kaF"_deva, "(5, 6) @1 @2 @3"},
    });
}

TEST(Statements, Circle) {
    expectStatements({
        {"{(}1{, }2{)} pasun 50 iÇJya vtuR¦ kaF"_deva, "ParentForm.DrawCircle  1, 2 ,   50 ,, FALSE"},
        {"{(}1{, }2{)} pasun 50 iÇJya -rlele vtuR¦ kaF"_deva, "ParentForm.DrawCircle  1, 2 ,   50 ,, TRUE"},
        {"{(}1{, }2{)} pasun 50 iÇJyace 255 r<gace -rlele vtuR¦ kaF"_deva,
         "ParentForm.DrawCircle  1, 2 ,   50 ,  255 , TRUE"},
        {"{(}1{, }2{)} pasun 50 iÇJya Aaslele 255 r<gace vtuR¦ kaF"_deva,
         "ParentForm.DrawCircle  1, 2 ,   50 ,  255 , FALSE"},
        {"{(}1{, }2{)} pasun x iÇJya y r<gace vtuR¦ kaF"_deva,
         "ParentForm.DrawCircle  1, 2 ,   @1 ,  @2 @1 @3 @4 , FALSE"},
        {"{(}1{, }2{)}pasun 5 iÇJya vtuR¦ kaF"_deva, "ParentForm.DrawCircle   ,  2)@1 5 ,, FALSE"},
        {"iÇJya pasun vtuR¦ kaF"_deva, "ParentForm.DrawCircle  @1 ,   ,, FALSE"},
    });
}

TEST(Statements, FunctionEnd) {
    expectStatements({
        {"%pàayaejn s<pv"_deva, "End Function"},
        {"hey%pàayaejn_s<pvhe"_deva, "End Function"},
        {"s<pv %pàayaejn"_deva, "END Function"},
        {"s<pv %pàayaejn s<pv"_deva, "End Function"},
    });
}

TEST(TranslateLine, NeedsASeparatorBehindEveryWord) {
    Translator translator;
    const auto line = [&](std::string_view internal) { return translator.TranslateLine(styled(internal)); };
    EXPECT_EQ(line(""), " ");
    EXPECT_EQ(line("   "), "    ");
    EXPECT_EQ(line("kaera"), " ");
    EXPECT_EQ(line("1 kaera"), " 1 ");
    EXPECT_EQ(line("kaera "), " parentform.ClearScreen ");
    EXPECT_EQ(line("1{=}2"), " 1=");
}

TEST(TranslateToken, WordsOutsideLines) {
    Translator translator;
    EXPECT_EQ(translator.TranslateToken(""), "");
    EXPECT_EQ(translator.TranslateToken("  "), "  ");
    EXPECT_EQ(translator.TranslateToken(" daov "), "parentform.PrintString");
    EXPECT_EQ(translator.TranslateToken(" 12 "), "12");
    EXPECT_EQ(translator.TranslateToken(" \"a b\" "), "\"a b\"");
    EXPECT_EQ(translator.TranslateToken("taevr"), "");
    EXPECT_EQ(translator.TranslateToken("*"), "*");
    EXPECT_EQ(translator.TranslateToken(" * *"), "aaaaaaaaab");
}

}  // namespace
}  // namespace tolvan
