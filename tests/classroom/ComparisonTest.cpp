#include "classroom/Comparison.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tolvan::classroom {
namespace {

using Kind = Difference::Kind;
using Reason = Difference::Reason;

std::optional<Difference> compare(const Lines& expected, const Lines& printed, std::string_view options = "") {
    return compareLines(expected, printed, readTaskOptions(options).exactness);
}

TEST(Comparison, IsExactWhereItMatters) {
    const struct {
        Lines expected;
        Lines printed;
        const char* options;
        bool same;
    } cases[] = {
        {{"a b"}, {"ab"}, "", false},
        {{"a b"}, {"a  b"}, "", false},
        {{"a b"}, {"a  b"}, "spaces = runs", true},
        {{"a b"}, {"ab"}, "spaces = runs", false},
        {{"a b"}, {"ab"}, "spaces = ignore", true},
        {{"a ", "b", ""}, {"a", "b"}, "", true},
        {{"a"}, {"a", "b"}, "", false},
        {{"a", "b"}, {"a"}, "", false},
        {{"a", "", "b"}, {"a", "b"}, "", false},
        {{"गुण: ४२"}, {"गुण: 42"}, "", true},
        {{"गुण: ४२"}, {"गुण: 42"}, "numerals = exact", false},
        {{"अॅप"}, {"ॲप"}, "", true},
        {{"क\u093Cलम"}, {"\u0958लम"}, "", true},
        {{"पक्\u200Dका"}, {"पक्का"}, "", true},
        {{"A"}, {"a"}, "", false},
        {{"३.३३३३"}, {"3.33"}, "digits = 2", true},
        {{"3.33"}, {"3.34"}, "digits = 2", false},
        {{"2.005 x 7"}, {"2.0049999999 x 7"}, "digits = 2", true},
        {{"7 x"}, {"7 y"}, "digits = 2", false},
        {{"7"}, {"x"}, "digits = 2", false},
        {{"1", "2", "2"}, {"2", "1", "2"}, "order = any", true},
        {{"1", "2", "2"}, {"2", "1", "1"}, "order = any", false},
        {{"1"}, {"1", "1"}, "order = any", false},
    };
    for (const auto& [expected, printed, options, same] : cases)
        EXPECT_EQ(!compare(expected, printed, options), same) << expected[0] << " " << printed[0] << " " << options;
}

TEST(Comparison, ShowsTheFirstDifferenceByWholeLetters) {
    const auto letters = compare({"एक", "नमस्ते जग"}, {"एक", "नमस्कार जग"});
    EXPECT_EQ(letters->line, 2U);
    EXPECT_THAT(letters->before, testing::ElementsAre("एक"));
    EXPECT_EQ(letters->expected.before + "|" + letters->expected.different + "|" + letters->expected.after,
              "नम|स्ते| जग");
    EXPECT_EQ(letters->printed.different, "स्कार");
    const auto blanks = compare({"a  b"}, {"a b"});
    EXPECT_EQ(blanks->reason, Reason::Blanks);
    EXPECT_EQ(blanks->expectedBlanks, 2U);
    EXPECT_EQ(blanks->printedBlanks, 1U);
    const auto few = compare({"a", "b", "c"}, {"a"});
    EXPECT_EQ(few->kind, Kind::TooFew);
    EXPECT_EQ(few->count, 2U);
    const std::string far(5000, 'x');
    const auto cut = compare({far + "1" + far}, {far + "2" + far});
    EXPECT_EQ(cut->printed.different, "2");
    EXPECT_LT(cut->printed.before.size(), 100U);
    EXPECT_EQ(cut->printed.leftOutBefore + cut->printed.before.size(), far.size());
    EXPECT_EQ(cut->printed.leftOutAfter + cut->printed.after.size(), far.size());
}

TEST(Comparison, ReadsWhatATeacherGives) {
    const auto differs = [](std::string_view file, std::string_view line) {
        return comparePrinted(readingsOf(file), {{std::string(line)}}, {}).has_value();
    };
    EXPECT_FALSE(differs("\xEF\xBB\xBFनमस्कार\r\n", "नमस्कार"));
    EXPECT_FALSE(differs("nmSkar 5", "नमस्कार ५"));
    EXPECT_FALSE(differs("nmSkar {Hello}\n", "नमस्कार Hello"));
    EXPECT_FALSE(differs("Hello 5\n", "Hello 5"));
    EXPECT_TRUE(differs("nmSkar {Hello}\n", "nmSkar {Hello}"));
}

// A result that stands before the next question must not pass for a question.
TEST(Comparison, KeepsQuestionsApart) {
    using enum PrintedLine::Kind;
    const std::vector<PrintedLine> solution{{"वय?", AlwaysAsked}, {"१०", Asked}, {"२०", Told}};
    const auto isRight = [&](const std::vector<PrintedLine>& printed) {
        return !comparePrinted(readingsOf(solution), printed, {});
    };
    EXPECT_TRUE(isRight({{"तुझे वय सांग", AlwaysAsked}, {"१०", Asked}, {"२०", Told}}));
    EXPECT_TRUE(isRight({{"१०", Told}, {"२०", Told}}));
    EXPECT_TRUE(isRight({{"वय "
                          "१",
                          Asked},
                         {"१०", Told},
                         {"२०", Told}}));
    EXPECT_FALSE(isRight({{"वय?", AlwaysAsked}, {"११", Asked}, {"२०", Told}}));
    EXPECT_FALSE(isRight({{"वय?", AlwaysAsked}, {"२०", Told}}));
}

}  // namespace
}  // namespace tolvan::classroom
