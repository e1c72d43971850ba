#include "classroom/ProcessWork.h"

#include <gtest/gtest.h>

namespace tolvan::classroom {
namespace {

TEST(ProcessWork, ComesThroughAPipeAsItWas) {
    ProcessWork work{.kind = ProcessWork::Kind::RunCase, .program = std::string("a\0\r\n", 4), .start = "b"};
    work.input = {.typed = "c", .keys = "d", .seed = 4'000'000'000};
    work.limits = {.seconds = 0.25, .outputBytes = 1, .memoryBytes = 2, .fileBytes = 3};
    EXPECT_EQ(packWork(unpackWork(packWork(work))), packWork(work));
    EXPECT_EQ(unpackWork(packWork(work)).program, work.program);
    EXPECT_EQ(unpackWork("damaged").program, "");
}

}  // namespace
}  // namespace tolvan::classroom
