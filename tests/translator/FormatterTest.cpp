// The formatter, and the table of messages.
#include "platform/encoding/Deva.h"
#include "platform/richtext/InternalText.h"
#include "support/Cases.h"
#include "translator/Formatter.h"
#include "translator/MessageTable.h"

#include <cstdint>
#include <gtest/gtest.h>

namespace tolvan {
namespace {

TEST(Formatter, Programs) {
    for (const Section& section : sectionsOf("translator/formatter.cases")) {
        // The Roman lines are numbers here: what is indented is not what is tested.
        std::string roman, program, formatted;
        for (std::size_t i = 0; i < section.lines.size(); ++i) {
            const std::string& line = section.lines[i];
            const std::size_t indent = line.find_first_not_of(' ');
            const std::string end = i + 1 < section.lines.size() ? "\r\n" : "";
            roman += "   " + std::to_string(i) + " " + end;
            program += bytesOf(line.substr(indent)) + end;
            formatted += line.substr(0, indent) + std::to_string(i) + end;
        }
        EXPECT_EQ(formatProgram(roman, styledText(program)), formatted) << section.title;
        EXPECT_EQ(formatProgram(formatted, styledText(program)), formatted) << section.title << ", once more";
    }
}

TEST(Formatter, LinesThatOnlyOneTextHas) {
    EXPECT_EQ(formatProgram("", {}), "");
    EXPECT_EQ(formatProgram("  ", styledText("jr x tr\r\na")), "");
    EXPECT_EQ(formatProgram(" a \r\n b\r\n c\r\n", styledText("jr x tr\r\nb")), "a\r\n      b\r\nc\r\n");
    EXPECT_EQ(formatProgram("a\nb\r c", styledText("x")), "a\nb\r c") << "only CR LF ends a line";
}

TEST(Formatter, BlocksNestedTooDeepForTheMemory) {
    std::string program;
    for (int i = 0; i < 100'000; ++i) program += "jaevr x\r\n";
    EXPECT_EQ(formatProgram(program, styledText(program)), program);
}

TEST(MessageTable, Bytes) {
    EXPECT_EQ(findMessage(7), "\\f1purezI Smri[ka %plB\" nahI");
    EXPECT_EQ(findMessage(74), "\\f1\xCAs\x9Dya ifSk vr nav bdlta yet nahI");
    EXPECT_EQ(findMessage(1008), "\\f1yewe \\f0{ \\f1Aapei]t Aahe");
    EXPECT_EQ(findMessage(32766), "\\f1ore");
    EXPECT_EQ(findMessage(-2147221503), "\\f1re\" Aaot yet nahI, \xB3\x85pya vaKy tpasun paha");
}

TEST(MessageTable, NothingForOtherNumbers) {
    for (const std::int32_t number : {0, 1, 2, 4, 8, 12, 438, 1015, 1016, 1041, 32765, -1, -2147221501, 66537})
        EXPECT_FALSE(findMessage(number)) << number;
}

}  // namespace
}  // namespace tolvan
