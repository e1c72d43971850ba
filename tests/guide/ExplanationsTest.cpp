// The explanations of errors.
#include "guide/Explanations.h"
#include "platform/richtext/InternalText.h"
#include "platform/script/ErrorReport.h"
#include "platform/script/Errors.h"
#include "translator/MessageTable.h"
#include "translator/ProgramText.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <set>

namespace tolvan::guide {
namespace {

TEST(Explanations, ThereIsOneForEveryErrorAndNoOther) {
    constexpr int firstWordOfTruth = 32766;  // the table's words for true and false
    std::set<int> numbers;
    for (const Message& message : messageTable())
        if (message.number < firstWordOfTruth) numbers.insert(message.number);
    for (const script::ErrorRow& row : script::errorRows()) numbers.insert(row.number);
    for (const int number : numbers) EXPECT_NE(findExplanation(number), nullptr) << number;
    for (const Explanation& row : explanations()) EXPECT_TRUE(numbers.contains(row.number)) << row.number;
    EXPECT_EQ(findExplanation(12), nullptr);
    script::ErrorReport unknown;
    unknown.number = 12;
    EXPECT_TRUE(explain(unknown, {}).empty());
}

// The variable "vay" is "aaaaaaaaab" in the script.
TEST(Explanations, NameWhatTookPart) {
    const struct {
        int number;
        const char* called;
        std::vector<script::ErrorOperand> operands;
        const char* begin;
    } cases[] = {
        {13,
         "",
         {{"aaaaaaaaab", "bara", "String"}, {"", "1", "Integer"}},
         "vay yA nAvAt #\"#bArA#\"# hA majakUr Ahe, saMkhyA nAhI. jithe"},
        {13, "CDbl", {{"", "bara", "String"}}, "#\"#bArA#\"# hA majakUr Ahe, saMkhyA nAhI. jithe"},
        {13, "aaaaaaaaab", {{"", "2", "Integer"}}, "vay he nAv sApaDale nAhI. yA nAvAche upaprAyojan"},
        {13, "", {{"aaaaaaaaab", "", "Variant()"}}, "vay hI mitI Ahe."},
        {9,
         "",
         {{"aaaaaaaaab", "", "Variant()"}, {"aaaaaaaaab(0)", "{-}7", "Integer"}},
         "vay yA nAvAchI kiMmat -7 Ahe. gharAchA"},
        {11, "", {{"", "1", "Integer"}, {"aaaaaaaaab", "", "Empty"}}, "vay yA nAvAlA kiMmat dilelI nAhI. bhAgAkArAt"},
        {5, "Sqr", {{"n", "{-}4", "Integer"}}, "dilelI kiMmat"},
    };
    const auto wordOf = [](std::string_view name) { return std::string(name == "aaaaaaaaab" ? "vy" : ""); };
    for (const auto& [number, called, operands, begin] : cases) {
        script::ErrorReport error;
        error.number = number;
        error.called = called;
        error.operands = operands;
        const std::string begins = RomanMark(Transliterate(begin));
        std::string lines;
        for (const StyledText& line : explain(error, wordOf)) lines += (lines.empty() ? "" : " ") + RomanMark(line);
        EXPECT_EQ(lines.substr(0, begins.size()), begins);
    }
}

// Two sentences, of some fifteen words at most; marks of quotes and Latin text are closed.
TEST(Explanations, AreShort) {
    for (const Explanation& row : explanations()) {
        EXPECT_EQ(std::count(row.meaning.begin(), row.meaning.end(), '.'), 2) << row.meaning;
        EXPECT_LE(std::count(row.meaning.begin(), row.meaning.end(), ' '), 16) << row.meaning;
        EXPECT_EQ(std::count(row.right.begin(), row.right.end(), '#') % 2, 0) << row.right;
        script::ErrorReport error;
        error.number = row.number;
        EXPECT_EQ(explain(error, {}).size(), row.wrong == row.right ? 1U : 2U) << row.number;
        EXPECT_FALSE(errorMessageText(row.number).empty());
    }
}

}  // namespace
}  // namespace tolvan::guide
