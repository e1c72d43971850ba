// From Roman letters to font codes: words, lines, program texts and program files.
#include "platform/encoding/Deva.h"
#include "platform/encoding/EncodingTable.h"
#include "platform/richtext/InternalText.h"
#include "platform/transliteration/Convert.h"
#include "platform/transliteration/MarkRoman.h"
#include "platform/transliteration/ReplaceRomanChars.h"
#include "support/Cases.h"
#include "translator/ProgramFile.h"
#include "translator/ProgramText.h"
#include "transliteration/Invariants.h"
#include "transliteration/ReadBack.h"

#include <gtest/gtest.h>
#include <random>
#include <set>

namespace tolvan {
namespace {

TEST(Convert, Words) {
    for (const Row& row : rowsOf("transliteration/words.cases")) EXPECT_EQ(convert(row[0]), row[1]) << row;
}

TEST(Convert, WhatIsNotALetterIsCopied) {
    for (int code = 0; code < 256; ++code) {
        const std::string character(1, static_cast<char>(code));
        if (std::isalpha(code) != 0) continue;
        const std::string copied = code == '\t' ? " " : character;
        EXPECT_EQ(convert(character), copied) << code;
        // It ends a cluster like every other end.
        EXPECT_EQ(convert("shar" + character + "shikar"), "zr"_deva.data() + copied + "izkr") << code;
    }
    EXPECT_EQ(convert(""), "");
    EXPECT_EQ(convert("\r\n12 \"{#}"), "\r\n12 \"{#}");
}

TEST(Convert, LimitOfOneCall) {
    EXPECT_EQ(convert(std::string(200, 'm')), std::string(199, 'M') + "m");
    EXPECT_THROW(convert(std::string(201, 'k')), std::length_error);
}

// Every code that draws a letter, sign or mark, but for those that no spelling asks for.
TEST(Convert, EveryGlyphIsWritten) {
    static constexpr std::string_view spelled[] = {
        "k",  "kh", "g", "gh", "NG", "ch", "chh", "j", "jh", "NY", "T", "Th", "D",  "Dh", "N", "t", "th",  "d",
        "dh", "n",  "p", "ph", "b",  "bh", "m",   "y", "r",  "l",  "L", "v",  "sh", "Sh", "s", "h", "ksh", "dny"};
    std::set<char> written;
    const auto write = [&](const std::string& roman) {
        for (const char code : convert(roman)) written.insert(code);
    };
    for (const std::string_view first : spelled)
        for (const std::string_view second : spelled)
            for (const std::string_view third : spelled)
                for (const std::string_view vowel : {"a", "u", "U", "Ri"})
                    write(std::string(first).append(second).append(third).append(vowel));
    for (const char* roman : {"aAiIuURi", "eaioauEO", "saMsiMsIMsMMsHsarvaM", "jXDXaRyA", "du", "dU", "dRi", "huhUhRi",
                              "rurU", "kA", "ke", "kai", "kE", "kI", "ki", "dgra"})
        write(roman);

    std::string missing;
    for (std::size_t code = 0; code < encodingTable().size(); ++code)
        if (!encodingTable()[code].draws.empty() && !written.contains(static_cast<char>(code)))
            missing += static_cast<char>(code);
    // Punctuation and accents, the letters of Sanskrit alone, and what has another code that is the usual one.
    EXPECT_EQ(missing, " ,./0123456789=?`„Ž•œ¤¥§¨©°É"_deva);
}

TEST(Convert, AnyWordIsReadBack) {
    std::mt19937 random(20);  // NOLINT(bugprone-random-generator-seed): the same words every time
    for (int i = 0; i < 50'000; ++i) {
        std::string roman;
        for (auto count = 1 + random() % 12; count > 0; --count) roman += anySpelling(random());
        ASSERT_EQ(withoutJoiners(unicodeOfCodes(convert(roman))), soundsOf(roman)) << roman;
    }
}

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

TEST(MarkRoman, SpansInText) {
    for (const Row& row : rowsOf("transliteration/marks.cases")) EXPECT_EQ(markRoman(row[0]), row[1]) << row;
}

TEST(ProgramText, FontsOfWordsMarksAndSpans) {
    for (const Row& row : rowsOf("transliteration/programs.cases"))
        EXPECT_EQ(RomanMark(ProgramText(row[0])), row[1]) << row;
    EXPECT_EQ(RomanMark(Transliterate("kar(a)")), "kr{(}A{)}");
    EXPECT_TRUE(Transliterate("").empty());
}

std::string anyRoman(std::mt19937& random) {
    static constexpr std::string_view characters = "kharAiuM#\"(=+ \r\n{}\\\t\xE9";
    std::string roman;
    for (auto count = random() % 60; count > 0; --count)
        roman += random() % 8 == 0 ? "\r\n" : std::string(1, characters[random() % characters.size()]);
    return roman;
}

TEST(ProgramText, AnyRomanText) {
    std::mt19937 random(7);  // NOLINT(bugprone-random-generator-seed): the same texts every time
    for (int i = 0; i < 5000; ++i) {
        const std::string roman = anyRoman(random);
        ASSERT_TRUE(isMarkedWell(roman)) << roman;
        ASSERT_TRUE(keepsLatin(roman)) << roman;
        ASSERT_TRUE(linesStandAlone(roman)) << roman;
    }
}

TEST(ProgramFile, LineEnds) {
    struct Row {
        std::string_view bytes;
        std::string_view caption;
        std::string_view roman;
    };
    for (const Row& row : std::initializer_list<Row>{
             {"Title\r\nkar\r\nnA\r\n", "Title", "kar\r\nnA\r\n"},
             {"Title\nkar\nnA\n", "Title", "kar\r\nnA\r\n"},
             {"Title\nkar\r\n\n\r\n", "Title", "kar\r\n\r\n\r\n"},
             {"\r\n", "", ""},
             {"\n", "", ""},
             {"\n\n", "", "\r\n"},
             {"a\rb\r\nc\rd", "a\rb", "c\rd"},
         }) {
        const ProgramFile file = readProgramFile(row.bytes);
        EXPECT_EQ(file.problem, ProgramFile::Problem::None);
        EXPECT_EQ(file.caption, row.caption) << row.bytes;
        EXPECT_EQ(file.roman, row.roman) << row.bytes;
    }
}

TEST(ProgramFile, FirstLineWithoutEnd) {
    for (const std::string_view bytes : {"", "namaskAr", "namaskAr\r"}) {
        const ProgramFile file = readProgramFile(bytes);
        EXPECT_EQ(file.problem, ProgramFile::Problem::FirstLineWithoutEnd);
        EXPECT_EQ(file.caption, bytes) << "nothing is lost";
        EXPECT_EQ(file.roman, "");
    }
}

}  // namespace
}  // namespace tolvan
