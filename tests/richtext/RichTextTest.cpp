// Internal text form, and rich text read and written.
#include "platform/richtext/InternalText.h"
#include "platform/richtext/RtfReader.h"
#include "platform/richtext/RtfWriter.h"
#include "richtext/RoundTrips.h"
#include "support/Cases.h"

#include <gtest/gtest.h>
#include <random>
#include <sstream>

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

// In internal text form, so that fonts show.
std::string textOf(std::string_view rtf) {
    const RichDocument document = readRtf(rtf);
    EXPECT_TRUE(isWhole(document)) << rtf;
    return RomanMark(document.text);
}

TEST(ReadRtf, TextAndItsFonts) {
    for (const Row& row : rowsOf("richtext/rtf.cases"))
        EXPECT_EQ(textOf(row.title == "Bodies" ? rtfDocument(row[0]) : row[0]), row[1]) << row;
}

TEST(ReadRtf, FontsColoursAndSizes) {
    const RichDocument document = readRtf(rtfDocument("a{\\cf2\\f1 b\\fs32 c}\\cf1 d\\cf9 e\\f5 g"));
    ASSERT_TRUE(isWhole(document));
    std::ostringstream runs;
    for (const RichRun& run : document.runs) {
        runs << run.length << " " << document.fontNames[run.format.fontName] << " " << run.format.halfPoints;
        if (run.format.colour) runs << " " << std::hex << *run.format.colour << std::dec;
        runs << "\n";
    }
    EXPECT_EQ(runs.str(),
              "1 Times New Roman 20\n1 Sanskrit 1.2 20 ffffff\n1 Sanskrit 1.2 32 ffffff\n1 Times New Roman 20 0\n"
              "1 Times New Roman 20\n1  20\n");
    EXPECT_EQ(document.text.font(5), Font::Other);
}

TEST(ReadRtf, ColoursOfAnyTable) {
    EXPECT_EQ(readRtf("{\\rtf1{\\colortbl;\\red300\\green-5\\blue16;}\\cf1 x}").runs.at(0).format.colour, 0x1000FFU);
}

TEST(ReadRtf, EachBeginningOfADocumentGivesABeginningOfItsText) {
    const std::string whole = rtfDocument("\\f1 s<pv \\'41 \\f0 (\\{x\\}){\\line}\\f1 \\\\kr\\par -");
    const std::string text = readRtf(whole).text.text();
    for (std::size_t length = RtfHeader().size(); length <= whole.size(); ++length)
        EXPECT_TRUE(text.starts_with(readRtf(whole.substr(0, length)).text.text())) << length;
}

TEST(ReadRtf, DeepGroupsAndLongInput) {
    const std::string deep(1'000'000, '{');
    EXPECT_EQ(textOf("{\\rtf1 a" + deep + "b" + std::string(deep.size(), '}') + "c}d"), "{abc}");
    EXPECT_EQ(textOf("{\\rtf1 " + deep), "");
    const std::string text(2'000'000, 'k');
    EXPECT_EQ(textOf("{\\rtf1 " + text), "{" + text + "}");
    EXPECT_EQ(textOf("{\\rtf1\\" + text + "123 x}"), "{x}");
}

TEST(RtfEscape, BackslashFirst) {
    EXPECT_EQ(RtfEscape(""), "");
    EXPECT_EQ(RtfEscape("a<\xE9"), "a<\xE9");
    EXPECT_EQ(RtfEscape("\\{"), "\\\\\\{");
    EXPECT_EQ(RtfEscape("{a}\\b"), "\\{a\\}\\\\b");
}

TEST(WriteRtf, Document) {
    StyledText text("s<pv\r\n", Font::Devanagari);
    text.append(" {x}", Font::Latin);
    EXPECT_EQ(rtfBody(text), "\\f1 s<pv{\\line}\\f0  \\{x\\}");
    EXPECT_EQ(writeRtf(text), std::string(RtfHeader()) + "\\f1 s<pv{\\line}\\f0  \\{x\\}\\par}");
    EXPECT_EQ(writeRtf({}), std::string(RtfHeader()) + "\\par}");
}

TEST(WriteRtf, AnyTextComesBack) {
    StyledText all;
    for (const Font font : {Font::Devanagari, Font::Latin, Font::Other})
        for (int code = 0; code < 256; ++code) {
            const char character = static_cast<char>(code);
            all.append(std::string_view(&character, 1), font);
        }
    EXPECT_TRUE(comesBackFromRtf(all));

    static constexpr std::string_view characters = "a 1-;\\{}\r\n\r\n\t\0'\xE9";
    std::mt19937 random(5);  // NOLINT(bugprone-random-generator-seed): the same texts every time
    for (int i = 0; i < 20'000; ++i) {
        StyledText text;
        for (auto count = random() % 12; count > 0; --count)
            text.append(characters.substr(random() % characters.size(), 1 + random() % 2),
                        static_cast<Font>(random() % 3));
        ASSERT_TRUE(comesBackFromRtf(text)) << writeRtf(text);
    }
}

}  // namespace
}  // namespace tolvan
