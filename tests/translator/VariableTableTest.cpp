#include "translator/VariableTable.h"

#include <gtest/gtest.h>
#include <string_view>
#include <vector>

namespace tolvan {
namespace {

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
