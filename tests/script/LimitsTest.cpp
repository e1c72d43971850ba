// What the built-in functions do with texts that are too large for the memory, or made to be slow.
#include "platform/script/Executor.h"

#include <gtest/gtest.h>

namespace tolvan::testing {
namespace {

TEST(Limits, MemoryThatRunsOutIsError7AndIsGivenBack) {
    script::Executor engine;
    engine.setMemoryLimit(std::size_t{1} << 20);
    script::Value value;
    ASSERT_TRUE(engine.evaluate("Len(Space(1000000))", value));
    value = script::Value();
    const std::size_t before = engine.memoryUsed();
    for (const char* expression : {
             "Space(2000000)",
             "Space(2147483647)",
             "String(2000000, \"a\")",
             "Replace(Space(10000), \" \", Space(10000))",
             "Replace(Space(100000), \" \", Space(100000), 1, -1, 1)",
             "Join(Split(Space(3000)), Space(1000))",
             "Split(Space(500000))",
             "Escape(Space(400000))",
             "StrReverse(Space(600000))",
             "UCase(String(600000, \"a\"))",
             "InStrRev(Space(400000), Space(300000))",
             "Space(600000) & Space(600000)",
             "Space(600000) + Space(600000)",
         }) {
        EXPECT_FALSE(engine.evaluate(expression, value)) << expression;
        EXPECT_EQ(engine.error().number, 7) << expression;
        EXPECT_EQ(engine.memoryUsed(), before) << expression;
    }
}

TEST(Limits, ATextThatIsTooLongIsError14) {
    script::Executor engine;
    engine.setLongestText(100);
    script::Value value;
    EXPECT_TRUE(engine.evaluate("Space(100)", value));
    EXPECT_TRUE(engine.addCode("a = Space(60)\na = a & Space(40)"));
    for (const char* code : {"b = Space(101)", "b = a & 1", "a = a & 1", "b = Replace(a, \" \", \"kk\")"}) {
        EXPECT_FALSE(engine.addCode(code)) << code;
        EXPECT_EQ(engine.error().number, 14) << code;
    }
}

// In quadratic time these would take hours.
TEST(Limits, RepetitiveTextsAreSearchedInLinearTime) {
    script::Executor engine;
    ASSERT_TRUE(
        engine.addCode("text = String(1000000, \"a\")\n"
                       "front = \"b\" & String(400000, \"a\")\n"
                       "back = String(400000, \"a\") & \"b\"\n"));
    for (const char* expression : {
             "InStr(text, back) = 0",
             "InStr(1, text, back, 1) = 0",
             "InStrRev(text, front) = 0",
             "InStrRev(text, front, -1, 1) = 0",
             "Len(Replace(text, \"a\", \"bc\")) = 2000000",
             "Len(Replace(text, back, \"\", 1, -1, 1)) = 1000000",
             "UBound(Split(text, \"A\", -1, 1)) = 1000000",
             "Len(Join(Split(text, \"a\"), \"xy\")) = 2000000",
             "UBound(Filter(Array(text, text, back), back)) = 0",
         }) {
        script::Value value;
        EXPECT_TRUE(engine.evaluate(expression, value)) << expression << ": " << engine.error().number;
        EXPECT_TRUE(value.is(script::Type::Boolean) && value.isTrue()) << expression;
    }
}

}  // namespace
}  // namespace tolvan::testing
