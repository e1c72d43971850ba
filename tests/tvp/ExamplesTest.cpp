// Every program of examples/: it prints, draws and asks what stands in examples/expected/, and is laid out as the
// formatter would.
#include "tvp/TvpProcess.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace tolvan {
namespace {

namespace fs = std::filesystem;

const fs::path examples = fs::path(TOLVAN_SOURCE_DIR) / "examples";

std::vector<std::string> exampleNames() {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(examples))
        if (entry.path().extension() == ".tvp") names.push_back(entry.path().stem().string());
    std::sort(names.begin(), names.end());
    return names;
}

// Empty when there is no such file.
std::string content(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

class ExampleTest : public testing::TestWithParam<std::string> {
  protected:
    std::string program() const { return (examples / (GetParam() + ".tvp")).string(); }
    std::string expected(const char* extension) const {
        return content(examples / "expected" / (GetParam() + extension));
    }
};

TEST_P(ExampleTest, PrintsAndDrawsWhatIsExpected) {
    TvpProcess tvp;
    const TvpResult result = tvp.run({"run", "--trace", program()}, expected(".in"));
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output, expected(".out"));
    std::string drawing;
    for (std::size_t start = 0; start < result.errors.size();) {
        const std::size_t end = result.errors.find('\n', start) + 1;
        const std::string line = result.errors.substr(start, end - start);
        if (line.starts_with("Draw")) drawing += line;
        start = end;
    }
    EXPECT_EQ(drawing, expected(".trace"));
    EXPECT_FALSE(result.output.empty() && drawing.empty());
}

TEST_P(ExampleTest, IsFormatted) {
    TvpProcess tvp;
    EXPECT_EQ(tvp.run({"format", program()}).output, content(program()));
}

INSTANTIATE_TEST_SUITE_P(All, ExampleTest, testing::ValuesIn(exampleNames()),
                         [](const auto& test) { return test.param; });

}  // namespace
}  // namespace tolvan
