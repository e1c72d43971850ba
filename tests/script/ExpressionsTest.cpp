// What expressions give (expressions.cases), also when they ask for more memory or time than there is.
#include "platform/script/ArrayCell.h"
#include "platform/script/Executor.h"
#include "support/Cases.h"

#include <gtest/gtest.h>

namespace tolvan::script {
namespace {

// "Integer 5", "String abc", "Null", "Empty", "Array [a] [b]", or "error 13".
std::string outcome(Executor& engine, std::string_view expression) {
    Value value;
    if (!engine.evaluate(expression, value)) return "error " + std::to_string(engine.error().number);
    if (value.isOneOf(bits(Type::Empty, Type::Null, Type::Object))) return engine.typeName(value);
    if (!value.is(Type::Array)) return engine.typeName(value) + ' ' + engine.text(value);
    std::string list = "Array";
    for (const Value& element : value.array()->elements()) list += " [" + engine.text(element) + ']';
    return list;
}

// Signs and points in angle brackets, yes and no for Booleans.
class MarkedForm : public TextForm {
  public:
    std::string number(std::string_view plain) const override {
        std::string text;
        for (const char c : plain) text += c >= '0' && c <= '9' ? std::string(1, c) : '<' + std::string(1, c) + '>';
        return text;
    }
    std::string date(std::string_view plain) const override { return "<" + std::string(plain) + ">"; }
    std::string boolean(bool on) const override { return on ? "yes" : "no"; }
    std::string plain(std::string_view text) const override {
        if (text == "yes") return "True";
        if (text == "no") return "False";
        std::string bare;
        for (const char c : text)
            if (c != '<' && c != '>') bare += c;
        return bare;
    }
    bool isPlain() const override { return false; }
};

constexpr std::string_view objects =
    "Class Holder\nPublic Content\n"
    "Public Default Property Get Item : Item = Content : End Property\nEnd Class\n"
    "Class Memberless\nEnd Class\n"
    "Set number = New Holder : number.Content = -5\n"
    "Set text = New Holder : text.Content = \"12\"\n"
    "Set list = New Holder : list.Content = Array(1, 2)\n"
    "Set none = New Holder : none.Content = Null\n"
    "Set bare = New Memberless\n";

class ExpressionTest : public testing::TestWithParam<Section> {};

TEST_P(ExpressionTest, GivesWhatTheTableSays) {
    const MarkedForm form;
    for (const Row& row : rowsOf("script/expressions.cases", GetParam().title)) {
        Executor engine;
        if (row.title.starts_with("Objects")) engine.addCode(objects);
        if (row.title.starts_with("Text form")) engine.setTextForm(&form);
        EXPECT_EQ(outcome(engine, row[0]), row[1]) << row;
    }
}

INSTANTIATE_TEST_SUITE_P(, ExpressionTest, testing::ValuesIn(sectionsOf("script/expressions.cases")),
                         [](const auto& test) { return test.param.testName(); });

TEST(Randomize, GivesOtherNumbersForAnotherSeed) {
    const auto numbers = [](int seed) {
        Executor engine;
        return outcome(engine, "Rnd(-1) & Randomize(" + std::to_string(seed) + ") & Rnd");
    };
    EXPECT_EQ(numbers(7), numbers(7));
    EXPECT_NE(numbers(7), numbers(8));
}

TEST(Limits, ATextThatIsTooLongIsError14) {
    Executor engine;
    engine.setLongestText(100);
    Value value;
    EXPECT_TRUE(engine.evaluate("Space(100)", value));
    EXPECT_TRUE(engine.addCode("a = Space(60)\na = a & Space(40)"));
    for (const char* code : {"b = Space(101)", "b = a & 1", "a = a & 1", "b = Replace(a, \" \", \"kk\")"}) {
        EXPECT_FALSE(engine.addCode(code)) << code;
        EXPECT_EQ(engine.error().number, 14) << code;
    }
}

TEST(Limits, MemoryThatRunsOutIsError7AndIsGivenBack) {
    Executor engine;
    engine.setMemoryLimit(std::size_t{1} << 20);
    Value value;
    ASSERT_TRUE(engine.evaluate("Len(Space(1000000))", value));
    value = Value();
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

// In quadratic time these would take hours.
TEST(Limits, RepetitiveTextsAreSearchedInLinearTime) {
    Executor engine;
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
        Value value;
        EXPECT_TRUE(engine.evaluate(expression, value)) << expression << ": " << engine.error().number;
        EXPECT_TRUE(value.is(Type::Boolean) && value.isTrue()) << expression;
    }
}

}  // namespace
}  // namespace tolvan::script
