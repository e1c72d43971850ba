#include "platform/encoding/Deva.h"
#include "platform/transliteration/Convert.h"
#include "platform/transliteration/ReplaceRomanChars.h"

#include <gtest/gtest.h>

namespace tolvan {
namespace {

TEST(ReplaceRomanChars, LinesAndShortTexts) {
    EXPECT_EQ(ReplaceRomanChars(""), "");
    EXPECT_EQ(ReplaceRomanChars("k"), "k");
    EXPECT_EQ(ReplaceRomanChars("A"), "Aa") << "all glyphs of a single letter";
    EXPECT_EQ(ReplaceRomanChars(" "), " ");
    EXPECT_EQ(ReplaceRomanChars("\t"), " ");
    EXPECT_EQ(ReplaceRomanChars("\r\n"), "\r\n");
    EXPECT_EQ(ReplaceRomanChars("tar\r\n\r\nkar  \r\n"), "tr\r\n\r\nkr  \r\n");
    EXPECT_EQ(ReplaceRomanChars("sh\nkh\rgh"), "z\no\r\"") << "only CR LF ends a line";
}

// The pieces are told by a word that is cut in two: kh is one letter, k and h are two.
TEST(LineConvert, Pieces) {
    const std::string letters(199, 'm');
    EXPECT_EQ(LineConvert(letters + "khA"), convert(letters + "k") + "ha");
    EXPECT_EQ(LineConvert("m" + letters + "khA"), convert(letters + "m") + "oa");

    const std::string two = letters + "k" + "h" + std::string(198, 'm') + "k" + "h" + std::string(49, 'm');
    EXPECT_EQ(two.size(), 450U);
    EXPECT_EQ(LineConvert(two), convert(letters + "k") + convert("h" + std::string(198, 'm') + "k") +
                                    convert("h" + std::string(49, 'm')));

    // Where there is a blank within 200 characters, the last one ends the piece.
    const std::string early = "kar " + std::string(150, 't') + " ";
    EXPECT_EQ(LineConvert(early + letters), convert(early) + convert(letters));
    EXPECT_EQ(LineConvert(letters + " khA"), convert(letters + " ") + "oa");
    EXPECT_EQ(LineConvert(letters + "k hA"), convert(letters + "k") + " ha");
}

TEST(LineConvert, AnyLengthOfWords) {
    std::string line;
    std::string expected;
    for (int i = 0; i < 100; ++i) {
        line += "ughaD saMpav ";
        expected += "%\"f s<pv ";
        ASSERT_EQ(LineConvert(line), expected);
    }
}

}  // namespace
}  // namespace tolvan
