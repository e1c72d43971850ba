#include "platform/richtext/RtfReader.h"
#include "richtext/RoundTrips.h"
#include "support/Cases.h"

#include <gtest/gtest.h>
#include <sstream>

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

TEST(ReadRtf, TextAndItsFonts) {
    for (const Row& row : rowsOf("richtext/rtf.cases"))
        EXPECT_EQ(textOf(row.title == "Bodies" ? message(row[0]) : row[0]), row[1]) << row;
}

TEST(ReadRtf, FontsColoursAndSizes) {
    const RichDocument document = readRtf(message("a{\\cf2\\f1 b\\fs32 c}\\cf1 d\\cf9 e\\f5 g"));
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
