#include "translator/ProgramFile.h"

#include <gtest/gtest.h>

namespace tolvan {
namespace {

TEST(ProgramFile, LineEnds) {
    struct Row {
        std::string_view bytes;
        std::string_view caption;
        std::string_view roman;
    };
    for (const Row& row : std::initializer_list<Row>{
             {"Title\r\nkar\r\nnA\r\n", "Title", "kar\r\nnA\r\n"},
             {"Title\nkar\nnA\n", "Title", "kar\r\nnA\r\n"},
             {"Title\nkar\r\n\n\r\n", "Title", "kar\r\n\r\n\r\n"},
             {"\r\n", "", ""},
             {"\n", "", ""},
             {"\n\n", "", "\r\n"},
             {"a\rb\r\nc\rd", "a\rb", "c\rd"},
         }) {
        const ProgramFile file = readProgramFile(row.bytes);
        EXPECT_EQ(file.problem, ProgramFile::Problem::None);
        EXPECT_EQ(file.caption, row.caption) << row.bytes;
        EXPECT_EQ(file.roman, row.roman) << row.bytes;
    }
}

TEST(ProgramFile, FirstLineWithoutEnd) {
    for (const std::string_view bytes : {"", "namaskAr", "namaskAr\r"}) {
        const ProgramFile file = readProgramFile(bytes);
        EXPECT_EQ(file.problem, ProgramFile::Problem::FirstLineWithoutEnd);
        EXPECT_EQ(file.caption, bytes) << "nothing is lost";
        EXPECT_EQ(file.roman, "");
    }
}

TEST(ProgramFile, EveryCharacterComesBack) {
    std::string all;
    for (int code = 0; code < 256; ++code)
        if (code != '\n') all += static_cast<char>(code);
    const ProgramFile file = readProgramFile(writeProgramFile(all, all));
    EXPECT_EQ(file.caption, all);
    EXPECT_EQ(file.roman, all + "\r\n");
}

}  // namespace
}  // namespace tolvan
