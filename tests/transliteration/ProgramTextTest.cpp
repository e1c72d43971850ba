#include "platform/encoding/Deva.h"
#include "platform/richtext/InternalText.h"
#include "translator/ProgramText.h"
#include "transliteration/Invariants.h"

#include <gtest/gtest.h>
#include <random>

namespace tolvan {
namespace {

TEST(ProgramText, FontsOfWordsMarksAndSpans) {
    struct Row {
        std::string_view roman;
        std::string_view program;  // in internal text form
    };
    for (const Row& row : std::initializer_list<Row>{
             {"", ""_deva},
             {"ghe", "\"e  "_deva},
             {"A", "Aa  "_deva},
             {"sum = a + 1", "sum {=} A {+} 1  "_deva},
             {"#\"#namaskAr Tolvan#\"# dAkhav", "{\"}nmSkar qaeLvn{\"} daov  "_deva},
             {"#\"Hello, (you)\"# dAkhav", "{\"Hello, (you)\"} daov  "_deva},
             {"jar (x<1)\r\nsaMpav\r\n", "jr {(}]{<}1{)}\r\ns<pv\r\n  "_deva},
             {"#one\r\ntwo# tar", "{one\r\ntwo} tr  "_deva},
             {"#{a}# {", "{\\{a\\}} \\{  "_deva},
             {"kar #na", "kr n  "_deva},
         })
        EXPECT_EQ(RomanMark(ProgramText(row.roman)), row.program) << row.roman;
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
