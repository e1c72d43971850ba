#include "platform/richtext/InternalText.h"
#include "richtext/RoundTrips.h"
#include "support/Cases.h"

#include <gtest/gtest.h>
#include <random>

namespace tolvan {

namespace {

TEST(InternalTextRuns, AnyText) {
    for (const Row& row : rowsOf("richtext/runs.cases")) {
        std::vector<std::string> expected, runs;
        for (std::size_t i = 1; i < row.size(); ++i) expected.push_back(row[i]);
        for (const InternalTextRun& run : InternalTextRuns(row[0])) {
            const char* kind = run.font == Font::Devanagari ? "deva " : run.dropped ? "latin " : "undropped ";
            runs.push_back(kind + std::string(run.text));
            EXPECT_TRUE(!run.dropped || run.font == Font::Latin) << row;
        }
        EXPECT_EQ(runs, expected) << row;
    }
}

TEST(PlainText, RunMarksFallAway) {
    EXPECT_EQ(plainText("{data.txt}"), "data.txt");
    EXPECT_EQ(plainText("nav{-1}"), "nav-1");
    EXPECT_EQ(plainText("{C:\\a\\b}c"), "C:\\a\\bc");
    EXPECT_EQ(plainText("\\{{x}\\}"), "{x}");
    EXPECT_EQ(plainText("}{"), "");
}

TEST(RomanMark, FontsAndBraces) {
    StyledText text;
    EXPECT_EQ(RomanMark(text), "");
    text.append("a", Font::Latin);
    EXPECT_EQ(RomanMark(text), "{a}");
    text.append("{", Font::Other);
    text.append("}x", Font::Devanagari);
    text.append("}", Font::Latin);
    EXPECT_EQ(RomanMark(text), "{a\\{}\\}x{\\}}");
    EXPECT_EQ(RomanMark(StyledView(text).substr(1, 2)), "{\\{}\\}");
}

TEST(InternalText, AnyStyledTextComesBack) {
    static constexpr std::string_view characters = "ab{}{}\\\\\n<\xE9";
    std::mt19937 random(3);  // NOLINT(bugprone-random-generator-seed): the same texts every time
    for (int i = 0; i < 20'000; ++i) {
        StyledText text;
        for (auto count = random() % 12; count > 0; --count)
            text.append(characters.substr(random() % characters.size(), 1), static_cast<Font>(random() % 2));
        ASSERT_TRUE(comesBackFromInternalText(text)) << RomanMark(text);
    }
}

}  // namespace
}  // namespace tolvan
