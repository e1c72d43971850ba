// Every program of examples/: it prints, draws and asks what stands in examples/expected/, and is laid out as the
// formatter would.
#include "support/Examples.h"
#include "tvp/TvpProcess.h"

#include <gtest/gtest.h>

namespace tolvan {
namespace {

class ExampleTest : public testing::TestWithParam<std::string> {
  protected:
    std::string program() const { return exampleProgram(GetParam()).string(); }
    std::string expected(const char* extension) const { return contentOf(expectedOfExample(GetParam(), extension)); }
};

TEST_P(ExampleTest, PrintsAndDrawsWhatIsExpected) {
    TvpProcess tvp;
    const TvpResult result = tvp.run(runOfExample(GetParam()), expected(".in"));
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output, expected(".out"));
    std::string drawing;
    std::istringstream calls(result.errors);
    for (std::string call; std::getline(calls, call);)
        if (call.starts_with("Draw")) drawing += call + "\n";
    EXPECT_EQ(drawing, expected(".trace"));
    EXPECT_FALSE(result.output.empty() && drawing.empty());
}

TEST_P(ExampleTest, IsFormatted) {
    TvpProcess tvp;
    EXPECT_EQ(tvp.run({"format", program()}).output, contentOf(program()));
}

INSTANTIATE_TEST_SUITE_P(All, ExampleTest, testing::ValuesIn(exampleNames()),
                         [](const auto& test) { return test.param; });

}  // namespace
}  // namespace tolvan
