#include "platform/encoding/Deva.h"
#include "translator/Formatter.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace tolvan {
namespace {

std::string joined(const std::vector<std::string>& lines) {
    std::string text;
    for (std::size_t i = 0; i < lines.size(); ++i) text.append(i > 0 ? "\r\n" : "").append(lines[i]);
    return text;
}

struct Line {
    int level;
    std::string_view program;
};

// The Roman lines are numbers here: what is indented is not what is tested.
void expectLevels(const char* name, const std::vector<Line>& lines) {
    std::vector<std::string> roman, program, formatted;
    for (const Line& line : lines) {
        const std::string number = std::to_string(roman.size());
        roman.push_back("   " + number + " ");
        program.emplace_back(line.program);
        formatted.push_back(std::string(static_cast<std::size_t>(line.level) * 6, ' ') + number);
    }
    EXPECT_EQ(formatProgram(joined(roman), joined(program)), joined(formatted)) << name;
    EXPECT_EQ(formatProgram(joined(formatted), joined(program)), joined(formatted)) << name << ", once more";
}

TEST(Formatter, Blocks) {
    expectLevels("no blocks",
                 {{0, "kaera"}, {0, "  daov "}, {0, ""}, {0, "jr x tr kaera"}, {0, "jr x"}, {0, "a jr x tr"}});
    expectLevels("condition", {{0, "jr x tr"},
                               {1, "kaera"},
                               {1, ""},
                               {1, "nahItrjr y tr"},
                               {1, "kaera"},
                               {0, "nahItr"},
                               {1, "kaera"},
                               {0, "s<pv jr"_deva},
                               {0, "kaera"}});
    expectLevels("else with something behind it", {{0, "jr x tr"}, {1, "nahItr kaera"}, {0, "s<pv"}});
    expectLevels("loops", {{0, "jaevr x taevr"},
                           {1, "A saQI 1 te 9"},
                           {2, "jr x tr "},
                           {3, "kaera"},
                           {2, "nahItr"},
                           {2, "s<pv jr"},
                           {2, "kaera"},
                           {1, "puFca A"},
                           {1, "A saQI 1 te 9"},
                           {1, "puFca A"},
                           {0, "kr"}});
    expectLevels(
        "nested conditions",
        {{0, "jr x tr"}, {1, "jr y tr"}, {1, "nahItr"}, {2, "kaera"}, {1, "s<pv"}, {0, "nahItr"}, {0, "s<pv"}});
    expectLevels("else of a condition around a loop",
                 {{0, "jr x tr"}, {1, "jaevr y"}, {1, "nahItr"}, {1, "kr"}, {0, "s<pv"}});
    expectLevels("only its own closer", {{0, "jr x tr"}, {1, "kr"}, {1, "puFca a saQI 1 te 2"}, {0, "s<pv"}});
    expectLevels("closer of nothing",
                 {{0, "jr x tr"}, {1, "a"}, {0, "s<pv"}, {0, "kr"}, {0, "jr x tr"}, {0, "a"}, {0, "s<pv"}});
    expectLevels("no end", {{0, "a"}, {0, "jaevr x"}, {1, "jr y tr"}, {2, "a"}, {2, "s<p"}});
}

TEST(Formatter, Functions) {
    expectLevels("body", {{0, "kaera"},
                          {0, "%pàayaejn f"_deva},
                          {1, "kaera"},
                          {1, "jr x tr"},
                          {2, "%pàayaejn g"_deva},
                          {1, "s<pv jr"},
                          {0, "%pàayaejn s<pv"_deva},
                          {0, "kaera"},
                          {0, "%pàayaejn h"_deva},
                          {1, "kaera"}});
    expectLevels("an end without a head", {{0, "%pàayaejn s<pv"_deva}, {0, "jr x tr"}, {1, "a"}, {0, "s<pv"}});
}

TEST(Formatter, LinesThatOnlyOneTextHas) {
    EXPECT_EQ(formatProgram("", ""), "");
    EXPECT_EQ(formatProgram("  ", "jr x tr\r\na"), "");
    EXPECT_EQ(formatProgram(" a \r\n b\r\n c\r\n", "jr x tr\r\nb"), "a\r\n      b\r\nc\r\n");
    EXPECT_EQ(formatProgram("a\nb\r c", "x"), "a\nb\r c") << "only CR LF ends a line";
}

TEST(Formatter, BlocksNestedTooDeepForTheMemory) {
    std::string program;
    for (int i = 0; i < 100'000; ++i) program += "jaevr x\r\n";
    EXPECT_EQ(formatProgram(program, program), program);
}

}  // namespace
}  // namespace tolvan
