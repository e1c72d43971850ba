#include "platform/encoding/Deva.h"
#include "support/Folders.h"
#include "translator/ProgramFile.h"
#include "translator/ProgramText.h"
#include "translator/Translator.h"
#include "translator/UnicodeProgram.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

namespace tolvan {
namespace {

TEST(UnicodeProgram, LinesBecomeRoman) {
    struct Row {
        std::string_view unicode;
        std::string_view roman;
        std::u32string_view leftOut = {};
    };
    for (const Row& row : std::initializer_list<Row>{
             {"दाखव \"नमस्कार\"", "dAkhav #\"#namaskAra#\"#"},
             {"दाखव \"Hello, World 5\" & अ", "dAkhav #\"Hello, World 5\"# & a"},
             {"जर गुण > 5 तर\nदाखव “हो” – १", "jar guNa > 5 tar\r\ndAkhav #\"#ho#\"# - 1"},
             {"कखे x, y = {१}", "kakhe #x, y = {#1#}#"},
             {"A line of English\u2028\"stays\" #", "A line of English\r\n\"stays\" #"},
             {"अ 😀 ব\r😀 #", "a  \r\n #", U"😀ব"},
             {"अं॰ ।#é", "aM #\xE9#", U"॰।#"},
             {"\u200Bक्\u200Dष ्", "kqSha ", U"\u200B\u094D"},
             {"", ""},
         }) {
        const RomanProgram program = romanOfUnicodeProgram(row.unicode);
        EXPECT_EQ(program.roman, row.roman) << row.unicode;
        EXPECT_EQ(program.leftOut, row.leftOut) << row.unicode;
    }
}

// Through Unicode and back a program is shown and runs as before.
TEST(UnicodeProgram, EveryExampleComesBack) {
    int count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(sourceFolder() + "/examples")) {
        if (entry.path().extension() != ".tvp") continue;
        std::ostringstream bytes;
        bytes << std::ifstream(entry.path(), std::ios::binary).rdbuf();
        const std::string roman = readProgramFile(bytes.str()).roman;
        const std::string unicode = unicodeOfProgram(roman);
        const RomanProgram back = romanOfUnicodeProgram(unicode);
        EXPECT_EQ(unicodeOfProgram(back.roman), unicode) << entry;
        EXPECT_EQ(back.leftOut, U"") << entry;
        // The font of a blank in a text is not told by Unicode.
        const auto module = [](std::string_view text) {
            std::string script = Translator().Compile(ProgramText(text));
            std::erase_if(script, [](char c) { return c == '{' || c == '}'; });
            return script;
        };
        EXPECT_EQ(module(back.roman), module(roman)) << entry;
        ++count;
    }
    EXPECT_GT(count, 5);
}

TEST(UnicodeProgram, FilesOfEveryForm) {
    const std::string utf8 = "नाव\nदाखव १\n";
    std::string little = "\xFF\xFE";
    std::string big = "\xFE\xFF";
    for (const char16_t unit : std::u16string(u"नाव\nदाखव १\n")) {
        little.append({static_cast<char>(unit), static_cast<char>(unit >> 8)});
        big.append({static_cast<char>(unit >> 8), static_cast<char>(unit)});
    }
    for (const std::string& bytes : {utf8, "\xEF\xBB\xBF" + utf8, little, big}) {
        const ProgramFile file = readProgramFile(bytes);
        EXPECT_TRUE(file.isUnicode);
        EXPECT_EQ(file.caption, "nAva");
        EXPECT_EQ(file.roman, "dAkhav 1\r\n");
    }
    EXPECT_EQ(readProgramFile("अ = १\nदाखव अ").roman, "a = 1\r\ndAkhav a") << "without a caption";
    EXPECT_FALSE(readProgramFile("caf\xC3\xA9\nkar\n").isUnicode) << "8-bit text may be UTF-8 by chance";
    EXPECT_FALSE(readProgramFile("a\n\xE0\xA4\x95 \xE0\n").isUnicode);
}

}  // namespace
}  // namespace tolvan
