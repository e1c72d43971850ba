#include "platform/richtext/RtfReader.h"
#include "richtext/RoundTrips.h"

#include <gtest/gtest.h>

namespace tolvan {
namespace {

std::string message(std::string_view body) {
    return std::string(RtfHeader()).append(body).append("\\par}");
}

// In internal text form, so that fonts show.
std::string textOf(std::string_view rtf) {
    const RichDocument document = readRtf(rtf);
    EXPECT_TRUE(isWhole(document)) << rtf;
    return RomanMark(document.text);
}

TEST(ReadRtf, BodyOfADocument) {
    struct Row {
        std::string_view body;
        std::string_view text;
    };
    for (const Row& row : std::initializer_list<Row>{
             {"", ""},
             {"plain", "{plain}"},
             {"\\f1 magR sapfla nahI\\f0.", "magR sapfla nahI{.}"},
             {"\\f1he \\f0: \\f1Aapei]t", "he {: }Aapei]t"},
             {"\\f1  two", " two"},
             {"\\f1 a{\\line}b\\line c", "a\r\nb\r\nc"},
             {"\\f1 a\\par b", "a\r\nb"},
             {"\\f1 a\\par\\par", "a\r\n\r\n"},
             {"\\f1 a{\\line}", "a\r\n"},
             {"\\f1 a\r\nb\nc", "abc"},
             {"\\f1 a\\\nb\\\r", "a\r\nb\r\n"},
             {"\\f1 \\\\\\{\\}", "\\\\{\\}"},
             {"\\f1 \\'41\\'e9\\'0d\\'zz\\'4", "A\xE9\rzz4"},
             {"{\\f1 a}b", "a{b}"},
             {"{\\cf2\\f1*a\\f0:\\f1 kr}", "*a{:}kr"},
             {"\\f1\\b a\\b0\\ul\\unknown12 b\\i-5c", "abc"},
             {"\\f1 a{\\*\\generator skipped {deep}}b", "ab"},
             {"\\f1 a{\\info{\\author A}}{\\pict\\bin5 }}}}}x}b", "ab"},
             {"\\f1 a\\~b\\_c\\-d\\tab e",
              "a\xA0"
              "b-cd\te"},
             {"\\f1 a\\plain b", "a{b}"},
             {"\\f1 a\\f7 b\\f1 c", "a{b}c"},
             {"\\f1 a\\f99999999999999999999 b\\f-1 c", "a{bc}"},
         })
        EXPECT_EQ(textOf(message(row.body)), row.text) << row.body;
}

TEST(ReadRtf, FontsColoursAndSizes) {
    const RichDocument document = readRtf(message("a{\\cf2\\f1 b\\fs32 c}\\cf1 d\\cf9 e\\f5 g"));
    ASSERT_TRUE(isWhole(document));
    struct Row {
        std::size_t length;
        std::string_view font;
        std::optional<std::uint32_t> colour;
        int halfPoints;
    };
    const std::vector<Row> rows = {
        {1, "Times New Roman", {}, 20},       {1, "Sanskrit 1.2", 0xFFFFFF, 20}, {1, "Sanskrit 1.2", 0xFFFFFF, 32},
        {1, "Times New Roman", 0x000000, 20}, {1, "Times New Roman", {}, 20},    {1, "", {}, 20},
    };
    ASSERT_EQ(document.runs.size(), rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const RichRun& run = document.runs[i];
        EXPECT_EQ(run.length, rows[i].length) << i;
        EXPECT_EQ(document.fontNames[run.format.fontName], rows[i].font) << i;
        EXPECT_EQ(run.format.colour, rows[i].colour) << i;
        EXPECT_EQ(run.format.halfPoints, rows[i].halfPoints) << i;
    }
    EXPECT_EQ(document.text.font(5), Font::Other);
}

TEST(ReadRtf, DocumentsFromElsewhere) {
    EXPECT_EQ(
        textOf("{\\rtf1\\ansi\\deff3{\\fonttbl{\\f3\\fnil\\fcharset0 Sanskrit 1.2;}{\\f9{\\*\\panose 01}Arial;}}\n"
               "{\\colortbl ;\\red1\\green2\\blue3;}\n{\\*\\generator X;}\\viewkind4\\pard kr\\f9 kr\\par\n}"),
        "kr{kr}");
    EXPECT_EQ(textOf("{\\rtf1{\\fonttbl\\f0 Times New Roman;\\f1 Sanskrit 1.2;}\\f1 k\\f0 r} after"), "k{r}");
    EXPECT_EQ(textOf("{\\rtf1 no table}"), "{no table}");
    EXPECT_EQ(readRtf("{\\rtf1{\\colortbl;\\red300\\green-5\\blue16;}\\cf1 x}").runs.at(0).format.colour, 0x1000FFU);
}

TEST(ReadRtf, DamagedInput) {
    EXPECT_EQ(textOf(""), "");
    EXPECT_EQ(textOf("no rich text\r\n"), "{no rich text\r\n}");
    EXPECT_EQ(textOf("{\\rtf1\\"), "");
    EXPECT_EQ(textOf("{\\rtf1 a}}}}{{{{b"), "{a}");
    EXPECT_EQ(textOf("{\\rtf1{\\fonttbl{\\f1 Sanskrit 1.2}}\\f1 a"), "a");
    EXPECT_EQ(textOf("{\\rtf1 {{{a\\bin99999999 lost"), "{a}");

    // Each beginning of a document gives a beginning of its text.
    const std::string whole = message("\\f1 s<pv \\'41 \\f0 (\\{x\\}){\\line}\\f1 \\\\kr\\par -");
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

}  // namespace
}  // namespace tolvan
