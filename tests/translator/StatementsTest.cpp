// Statements one by one: their tokens, their script, and the names that variables get.
#include "platform/richtext/InternalText.h"
#include "support/Cases.h"
#include "translator/Modules.h"
#include "translator/Scanner.h"
#include "translator/Translator.h"
#include "translator/VariableTable.h"

#include <cctype>
#include <gtest/gtest.h>

namespace tolvan {
namespace {

TEST(IsSeparator, DependsOnCodeThenOnFont) {
    for (int code = 0; code < 256; ++code) {
        const char c = static_cast<char>(code);
        const bool word = code < 128 && (std::isalnum(code) != 0 || c == '_');
        EXPECT_EQ(IsSeparator(c, Font::Latin), !word) << code;
        for (const Font font : {Font::Devanagari, Font::Other}) EXPECT_EQ(IsSeparator(c, font), c == ' ') << code;
    }
}

// Each token as its kind's letter and its text: W(ord), S(eparator), L(iteral), X for what is lost.
std::string tokens(std::string_view internal) {
    const StyledText statement = styledText(internal);
    std::string listed;
    Scanner scanner(statement);
    while (const auto token = scanner.next()) {
        listed += "WSLX"[static_cast<int>(token->kind)];
        listed.append("[").append(token->text.text()).append("]");
    }
    return listed;
}

TEST(Scanner, Tokens) {
    for (const Row& row : rowsOf("translator/tokens.cases")) EXPECT_EQ(tokens(row[0]), row[1]) << row;
}

std::string module(std::string_view statement) {
    return moduleText("Sub Main()\n! " + std::string(statement) + "\nEnd Sub\n");
}

TEST(Statements, OneByOne) {
    Translator translator;
    for (const Row& row : rowsOf("translator/statements.cases"))
        EXPECT_EQ(translator.Compile(styledText(row[0])), module(row[1])) << row;
}

TEST(Statements, OtherFontsAreGlyphsInWordsAndLatinInLiterals) {
    StyledText line("x=1 ", Font::Other);
    line.append("\"", Font::Latin);
    line.append("a<", Font::Other);
    line.append("b\"", Font::Latin);
    EXPECT_EQ(Translator().Compile(line), module("@1 \"{a<b}\""));
}

TEST(Statements, ACommentLeavesOneBlankMoreThanAnotherLine) {
    EXPECT_EQ(Translator().TranslateLine(styledText("{1 sucna 2}")), "  1 ");
}

TEST(TranslateLine, NeedsASeparatorBehindEveryWord) {
    Translator translator;
    const auto line = [&](std::string_view internal) { return translator.TranslateLine(styledText(internal)); };
    EXPECT_EQ(line(""), " ");
    EXPECT_EQ(line("   "), "    ");
    EXPECT_EQ(line("kaera"), " ");
    EXPECT_EQ(line("1 kaera"), " 1 ");
    EXPECT_EQ(line("kaera "), " parentform.ClearScreen ");
    EXPECT_EQ(line("1{=}2"), " 1=");
}

TEST(VariableTable, TheCounterCarriesOneNameLate) {
    std::vector<std::string> names(1);
    VariableTable table;
    for (int i = 0; i < 702; ++i) names.push_back(table.MapIdentifier(std::to_string(i)));
    const struct {
        std::size_t number;
        std::string_view name;
    } rows[] = {
        {1, "aaaaaaaaab"},   {24, "aaaaaaaaay"},  {25, "aaaaaaaaaz"},  {26, "aaaaaaaabz"},  {27, "aaaaaaaabb"},
        {49, "aaaaaaaabx"},  {50, "aaaaaaaaby"},  {51, "aaaaaaaabz"},  {52, "aaaaaaaacz"},  {53, "aaaaaaaacb"},
        {650, "aaaaaaaazz"}, {651, "aaaaaaaazb"}, {675, "aaaaaaaazz"}, {676, "aaaaaaabzz"}, {677, "aaaaaaabab"},
        {701, "aaaaaaabaz"}, {702, "aaaaaaabbz"},
    };
    for (const auto& row : rows) EXPECT_EQ(names[row.number], row.name) << row.number;
}

TEST(VariableTable, NamesAreExactButForBlanksAround) {
    VariableTable table;
    const std::string first = table.MapIdentifier("ab");
    EXPECT_EQ(table.MapIdentifier("  ab "), first);
    for (const std::string_view other : {"Ab", "a b", "ab\t", "\"ab", ""}) EXPECT_NE(table.MapIdentifier(other), first);
    EXPECT_EQ(table.MapIdentifier("ab"), first);
}

TEST(VariableTable, StartsAgainWhenItIsEmpty) {
    VariableTable table;
    EXPECT_EQ(table.GetNextVariable(), "aaaaaaaaab");
    EXPECT_EQ(table.GetNextVariable(), "aaaaaaaaab") << "no name was put into the table";
    table.MapIdentifier("x");
    EXPECT_EQ(table.GetNextVariable(), "aaaaaaaaac");
    EXPECT_EQ(table.MapIdentifier("y"), "aaaaaaaaad");
    table.clear();
    EXPECT_EQ(table.MapIdentifier("y"), "aaaaaaaaab");
}

}  // namespace
}  // namespace tolvan
