#include "platform/richtext/InternalText.h"
#include "richtext/RoundTrips.h"

#include <gtest/gtest.h>
#include <ostream>
#include <random>

namespace tolvan {

void PrintTo(const InternalTextRun& run, std::ostream* stream) {
    *stream << (run.font == Font::Devanagari ? "deva" : "latin") << (run.dropped ? " dropped " : " ") << run.text;
}

namespace {

InternalTextRun deva(std::string text) {
    return {std::move(text), Font::Devanagari, false};
}
InternalTextRun latin(std::string text) {
    return {std::move(text), Font::Latin, true};
}
InternalTextRun undropped(std::string text) {
    return {std::move(text), Font::Latin, false};
}

TEST(InternalTextRuns, AnyText) {
    struct Row {
        std::string_view text;
        std::vector<InternalTextRun> runs;
    };
    for (const Row& row : std::initializer_list<Row>{
             {"", {}},
             {"nmSkar", {deva("nmSkar")}},
             {"{Hello}", {latin("Hello")}},
             {"a{b}c", {deva("a"), latin("b"), deva("c")}},
             {"a{b}{c}", {deva("a"), latin("b"), latin("c")}},
             {"{}{}", {}},
             {"\\{a\\}", {deva("{a}")}},
             {"{\\{a\\}}", {latin("{a}")}},
             {"{a", {undropped("a")}},
             {"{a{b", {deva("a"), undropped("b")}},
             {"a{b{c}", {deva("a"), deva("b"), latin("c")}},
             {"a}b", {latin("a"), deva("b")}},
             {"a}{b}}", {latin("a"), latin("b")}},
             {"a\\b", {deva("a\\b")}},
             {"a\\", {deva("a\\")}},
             {"\\\\{a", {deva("\\{a")}},
             {"{\\}a", {undropped("}a")}},
             {"\r\n{x\r\n}", {deva("\r\n"), latin("x\r\n")}},
         })
        EXPECT_EQ(InternalTextRuns(row.text), row.runs) << row.text;
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
    static constexpr std::string_view characters = "ab{}{}\r\n<\xE9";
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
