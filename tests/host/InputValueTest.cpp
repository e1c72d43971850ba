#include "platform/encoding/Deva.h"
#include "runtime/host/InputValue.h"

#include <gtest/gtest.h>

namespace tolvan {
namespace {

TEST(InputValue, TransliteratesAndMarksLatin) {
    const std::string longAnswer(1000, 'a');
    const struct {
        std::string_view typed;
        std::string_view value;
    } cases[] = {
        {"", ""},
        {"5", "5"},
        {"-5", "{-}5"},
        {"2.5", "2{.}5"},
        {"muMbaI", "mu<b$"_deva},
        {"mI #BASIC#", "mI {BASIC}"_deva},
        {"ho, nAhI", "hae{,} nahI"_deva},
        {"A", "Aa"_deva},  // all glyphs of a single letter
        {" ", " "},
    };
    for (const auto& [typed, value] : cases) EXPECT_EQ(inputValue(typed), value) << typed;
    EXPECT_EQ(inputValue(longAnswer).find('{'), std::string::npos);
}

}  // namespace
}  // namespace tolvan
