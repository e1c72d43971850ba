#include "platform/encoding/Ascii.h"
#include "platform/encoding/Csv.h"
#include "platform/encoding/Deva.h"
#include "platform/encoding/Utf8.h"

#include <gtest/gtest.h>

namespace tolvan {
namespace {

TEST(Ascii, TakesLinesWithTheirOwnEnds) {
    std::string_view text = "a\r\n\nb\r\r\n\r";
    std::string lines;
    while (!text.empty()) {
        const Line line = takeLine(text);
        lines.append(line.text).append(line.end == lineEnd ? "|" : line.end == "\n" ? "/" : ".");
    }
    EXPECT_EQ(lines, "a|/b\r|\r.");
}

// Only ASCII's letters have another case, whatever stands beside them and above 127.
TEST(Ascii, LettersAndDigits) {
    EXPECT_EQ(lowerCase("@AZ[`az{\xC0\xDE"), "@az[`az{\xC0\xDE");
    EXPECT_TRUE(sameButForCase("kAvitA", "KaVITa"));
    EXPECT_FALSE(sameButForCase("\xC0", "\xE0"));
    EXPECT_FALSE(sameButForCase("ab", "abc"));
    std::string digits;
    for (int c = -128; c < 128; ++c)
        if (digitValue(static_cast<char>(c)) != noDigit) digits += static_cast<char>(c);
    EXPECT_EQ(digits, "0123456789ABCDEFabcdef");
    EXPECT_EQ(digitValue('f'), 15);
}

TEST(Windows1252, EveryCodeComesBackFromItsCharacter) {
    for (int code = 0; code < 256; ++code)
        EXPECT_EQ(unicodeToWindows1252(windows1252ToUnicode(static_cast<std::uint8_t>(code))), code);
}

TEST(Windows1252, CharactersWithoutCode) {
    for (const char32_t character : {0x0080U, 0x0093U, 0x0100U, 0x0915U, 0x2603U, 0x1F600U, 0x10FFFFU})
        EXPECT_FALSE(unicodeToWindows1252(character)) << static_cast<unsigned>(character);
}

// A character has one form only, and half of a pair is none.
TEST(Utf8, LongerFormsAndHalvesAreNoText) {
    EXPECT_TRUE(isUtf8("a\xC2\x80\xE0\xA0\x80\xF0\x90\x80\x80"));
    for (const char* text : {"\xC0\x80", "\xE0\x80\xAF", "\xF0\x80\x80\xAF", "\xED\xA0\x80"})
        EXPECT_FALSE(isUtf8(text)) << text;
}

// What a spreadsheet would take for a formula is text there; a number stays one, and programs get everything as it is.
TEST(Csv, ValuesOfSpreadsheetsAndPrograms) {
    const struct {
        const char* value;
        const char* spreadsheet;
        const char* program;
    } cases[] = {
        {"", "", ""},
        {"a b", "a b", "a b"},
        {"=1+1", "'=1+1", "=1+1"},
        {"+1", "'+1", "+1"},
        {"@A1", "'@A1", "@A1"},
        {"\tx", "'\tx", "\tx"},
        {"\rx", "\"'\rx\"", "\"\rx\""},
        {"-x", "'-x", "-x"},
        {"-1-1", "'-1-1", "-1-1"},
        {"-१,=", "\"'-१,=\"", "\"-१,=\""},
        {"-12.5", "-12.5", "-12.5"},
        {"-१.५E-०७", "-१.५E-०७", "-१.५E-०७"},
        {"a=b", "a=b", "a=b"},
        {"a,b", "\"a,b\"", "\"a,b\""},
        {"a\nb", "\"a\nb\"", "\"a\nb\""},
        {"say \"a\"", "\"say \"\"a\"\"\"", "\"say \"\"a\"\"\""},
        {"=\"a\"", "\"'=\"\"a\"\"\"", "\"=\"\"a\"\"\""},
    };
    for (const auto& [value, spreadsheet, program] : cases) {
        EXPECT_EQ(csvValue(value, CsvFor::Spreadsheets), spreadsheet);
        EXPECT_EQ(csvValue(value, CsvFor::Programs), program);
    }
}

TEST(DevaLiteral, BytesOfTheFont) {
    EXPECT_EQ("kaera"_deva, "kaera");
    EXPECT_EQ(""_deva, "");
    EXPECT_EQ("r<gacI €é"_deva, "r<gacI \x80\xE9");
    EXPECT_EQ("a\u009dŽ—"_deva, "a\x9D\x8E\x97");
    EXPECT_EQ("%\"f"_deva, "%\"f");
}

}  // namespace
}  // namespace tolvan
