#include "runtime/MarkFailingLine.h"

#include <gtest/gtest.h>

namespace tolvan {
namespace {

TEST(MarkFailingLine, LineOfTheModuleToLineOfTheProgram) {
    // The poll of line k (from 1) is line 2k of the module, its statement 2k + 1.
    struct {
        int script;
        int program;
    } const cases[] = {{0, -1}, {1, 0}, {2, 0}, {3, 0}, {4, 1},          {5, 2},
                       {6, 2},  {7, 2}, {8, 3}, {9, 4}, {200001, 100000}};
    for (const auto& [script, program] : cases) EXPECT_EQ(errorLineOf(script), program) << script;
}

TEST(MarkFailingLine, SpansReachToTheCarriageReturn) {
    const std::string text = "one\r\n\r\nthree";
    struct {
        std::int32_t line;
        LineSpan span;
    } const cases[] = {{-1, {0, 4}}, {0, {0, 4}}, {1, {5, 1}}, {2, {7, 6}}, {3, {14, 14}}};
    for (const auto& [line, span] : cases) EXPECT_EQ(spanOfLine(text, line), span) << line;
    EXPECT_EQ(spanOfLine("", 0), (LineSpan{0, 1}));
    // A text that has become shorter since.
    for (std::int32_t line = 0; line < 50; ++line) EXPECT_LE(spanOfLine(text, line).start, text.size() + 2);
}

}  // namespace
}  // namespace tolvan
