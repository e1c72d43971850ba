// The explanations of errors.
#include "guide/Explanations.h"
#include "platform/script/Errors.h"
#include "translator/MessageTable.h"

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
    EXPECT_TRUE(explain(12).empty());
}

// Two sentences, of some fifteen words at most; marks of quotes and Latin text are closed.
TEST(Explanations, AreShort) {
    for (const Explanation& row : explanations()) {
        EXPECT_EQ(std::count(row.meaning.begin(), row.meaning.end(), '.'), 2) << row.meaning;
        EXPECT_LE(std::count(row.meaning.begin(), row.meaning.end(), ' '), 16) << row.meaning;
        EXPECT_EQ(std::count(row.right.begin(), row.right.end(), '#') % 2, 0) << row.right;
        EXPECT_FALSE(explain(row.number).empty());
        EXPECT_FALSE(errorMessageText(row.number).empty());
    }
}

}  // namespace
}  // namespace tolvan::guide
