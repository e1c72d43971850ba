#include "platform/richtext/RtfWriter.h"
#include "richtext/RoundTrips.h"

#include <gtest/gtest.h>
#include <random>

namespace tolvan {
namespace {

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
