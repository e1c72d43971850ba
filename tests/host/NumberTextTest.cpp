#include "platform/encoding/Deva.h"
#include "runtime/host/NumberText.h"

#include <gtest/gtest.h>

namespace tolvan {
namespace {

TEST(NumberText, MarksWhatIsNoDigitAsLatinAndReadsItBack) {
    const struct {
        const char* plain;
        const char* marked;
    } cases[] = {
        {"0", "0"},
        {"25", "25"},
        {"-2.5", "{-}2{.}5"},
        {"1E+15", "1{E+}15"},
        {"-1.5E-07", "{-}1{.}5{E-}07"},
        {"12/3/2001", "12{/}3{/}2001"},
        {"", ""},
    };
    const NumberText form;
    for (const auto& [plain, marked] : cases) {
        EXPECT_EQ(form.number(plain), marked);
        EXPECT_EQ(form.plain(marked), plain);
    }
    EXPECT_EQ(form.plain("{-5}"), "-5");
    EXPECT_FALSE(form.isPlain());
}

TEST(NumberText, SaysTrueAndFalseInMarathi) {
    const NumberText form;
    EXPECT_EQ(form.boolean(true), "ore"_deva);
    EXPECT_EQ(form.boolean(false), "oaeqe"_deva);
}

}  // namespace
}  // namespace tolvan
