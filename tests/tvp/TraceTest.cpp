// The tables of "tvp trace".

#include "support/Cases.h"
#include "tvp/TvpProcess.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tolvan {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

// The parts of a section between lines "--", as they stand.
std::vector<std::string> partsOf(const Section& section) {
    std::vector<std::string> parts(1);
    for (const std::string& line : section.lines)
        if (line == "--")
            parts.emplace_back();
        else
            parts.back() += line + "\n";
    parts.resize(4);
    return parts;
}

TEST(Trace, WritesTheTablesThatOneWorksOutByHand) {
    for (const Section& section : sectionsOf("tvp/trace.cases")) {
        const std::vector<std::string> parts = partsOf(section);
        TvpProcess tvp;
        tvp.folder().write("typed.txt", parts[2]);
        const TvpResult result = tvp.runProgram({"trace", "--input", "typed.txt"}, parts[0]);
        EXPECT_EQ(result.output, parts[1]) << section;
        const std::string failure = parts[3].substr(0, parts[3].find('\n'));
        EXPECT_THAT(result.errors, StartsWith(failure)) << section;
        EXPECT_EQ(result.errors.empty(), failure.empty()) << section << result.errors;
        EXPECT_EQ(result.status, failure.empty() ? 0 : 1) << section;
    }
}

TEST(Trace, ShowsTheColumnsAndRowsThatAreAskedFor) {
    TvpProcess tvp;
    const std::string roman = "a = 1\r\nberIj = 2\r\ni sAThI 1 te 5000 paryaMt\r\na = i\r\npuDhachA i";
    const TvpResult last = tvp.runProgram({"trace", "--last=2", "--columns", "berIj,इ"}, roman);
    EXPECT_EQ(last.output, "line,text,बेरीज,इ\n4,अ = इ,२,५०००\n5,पुढचा इ,२,५००१\n");
    EXPECT_EQ(last.errors, "tvp: the table has the last 2 of 10003 rows\n");
    EXPECT_EQ(tvp.runProgram({"trace", "--last", "20000"}, roman).errors, "");
    EXPECT_EQ(tvp.runProgram({"trace", "--columns=nAhI"}, roman).status, 2);
    EXPECT_EQ(tvp.runProgram({"trace", "--last=0"}, roman).status, 2);
}

TEST(Trace, KeepsToTheLimitsOfARun) {
    TvpProcess tvp;
    const std::string endless = "jovar 1 = 1 tovar\r\na = a & #\"k\"#\r\ndAkhav a\r\nkar";
    const TvpResult time = tvp.runProgram({"trace", "--seconds=0.2", "--last=1"}, endless);
    EXPECT_EQ(time.status, 3);
    EXPECT_THAT(time.output, StartsWith("line,text,अ\n"));
    EXPECT_THAT(time.errors, HasSubstr("its time is over"));
    const TvpResult output = tvp.runProgram({"trace", "--output=10"}, endless);
    EXPECT_EQ(output.status, 3);
    EXPECT_THAT(output.output, HasSubstr("दाखव अ,kkkk\n"));
    // What the table keeps does not take the program's memory away.
    const std::string texts =
        "i sAThI 1 te 300 paryaMt\r\nt = #\"k\"#\r\nj sAThI 1 te 12 paryaMt\r\n"
        "t = t & t\r\npuDhachA j\r\nt = i & t\r\npuDhachA i";
    EXPECT_THAT(tvp.runProgram({"trace", "--memory=300K"}, texts).errors, StartsWith("tvp: the table has the last"));
}

}  // namespace
}  // namespace tolvan
