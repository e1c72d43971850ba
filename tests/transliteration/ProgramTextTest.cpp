#include "platform/richtext/InternalText.h"
#include "platform/transliteration/MarkRoman.h"
#include "support/Cases.h"
#include "translator/ProgramText.h"
#include "transliteration/Invariants.h"

#include <gtest/gtest.h>
#include <random>

namespace tolvan {
namespace {

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

}  // namespace
}  // namespace tolvan
