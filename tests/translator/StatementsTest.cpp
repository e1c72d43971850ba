#include "support/Cases.h"
#include "translator/Modules.h"
#include "translator/Styled.h"
#include "translator/Translator.h"

#include <gtest/gtest.h>

namespace tolvan {
namespace {

std::string module(std::string_view statement) {
    return moduleText("Sub Main()\n!\n" + std::string(statement) + "\nEnd Sub\n");
}

TEST(Statements, OneByOne) {
    Translator translator;
    for (const Row& row : rowsOf("translator/statements.cases"))
        EXPECT_EQ(translator.Compile(styled(row[0])), module(row[1])) << row;
}

TEST(Statements, OtherFontsAreGlyphsInWordsAndLatinInLiterals) {
    StyledText line("x=1 ", Font::Other);
    line.append("\"", Font::Latin);
    line.append("a<", Font::Other);
    line.append("b\"", Font::Latin);
    EXPECT_EQ(Translator().Compile(line), module("@1 \"{a<b}\""));
}

TEST(Statements, ACommentLeavesOneBlankMoreThanAnotherLine) {
    EXPECT_EQ(Translator().TranslateLine(styled("{1 sucna 2}")), "  1 ");
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
    const auto token = [&](std::string_view word, Font font) {
        return translator.TranslateToken(StyledText(word, font));
    };
    static constexpr std::pair<std::string_view, std::string_view> words[] = {
        {"", ""},
        {"  ", "  "},
        {" daov ", "parentform.PrintString"},
        {" 12 ", "12"},
        {" \"a b\" ", "\"a b\""},
        {"taevr", ""},
        {" * *", "aaaaaaaaab"},
    };
    for (const auto& [word, script] : words) EXPECT_EQ(token(word, Font::Devanagari), script) << word;
    // Marks and quotes of the Latin font are letters of the other one.
    for (const char* mark : {"*", "-", "<"}) EXPECT_EQ(token(mark, Font::Latin), mark);
    for (const char* letter : {"*", "-", "\""}) EXPECT_NE(token(letter, Font::Devanagari), letter);
}

}  // namespace
}  // namespace tolvan
