#include "platform/encoding/Deva.h"
#include "platform/encoding/EncodingTable.h"
#include "platform/transliteration/Convert.h"
#include "support/Cases.h"
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

}  // namespace
}  // namespace tolvan
