#include "host/TemporaryFolder.h"
#include "runtime/host/ProgramDataFile.h"

#include <gtest/gtest.h>
#include <vector>

namespace tolvan {

inline void PrintTo(FileError error, std::ostream* out) {
    *out << "error " << static_cast<int>(error);
}

namespace {

using Mode = ProgramDataFile::Mode;

std::vector<std::string> linesOf(ProgramDataFile& file) {
    std::vector<std::string> lines;
    for (bool end = false; file.atEnd(end) == FileError::None && !end;) {
        lines.emplace_back();
        EXPECT_EQ(file.readLine(lines.back()), FileError::None);
    }
    return lines;
}

TEST(ProgramDataFile, WritesReadsBackAndAppends) {
    const TemporaryFolder folder;
    ReachableFiles files(folder.path());
    ProgramDataFile file;
    for (const auto& [mode, text] : {std::pair{Mode::Write, "namaskar"}, {Mode::Append, "{-}2{.}5"}}) {
        ASSERT_EQ(file.open(files, folder / "marks.txt", mode), FileError::None);
        EXPECT_EQ(file.writeLine(text), FileError::None);
        bool end = false;
        EXPECT_EQ(file.atEnd(end), FileError::None);
        EXPECT_TRUE(end);
        EXPECT_EQ(file.close(), FileError::None);
    }
    EXPECT_EQ(folder.read("marks.txt"), "namaskar\r\n{-}2{.}5\r\n");
    ASSERT_EQ(file.open(files, folder / "Marks.TXT", Mode::Read), FileError::None);
    EXPECT_EQ(linesOf(file), (std::vector<std::string>{"namaskar", "{-}2{.}5"}));
    std::string line = "kept?";
    EXPECT_EQ(file.readLine(line), FileError::PastEnd);
    file.close();
    ASSERT_EQ(file.open(files, folder / "marks.txt", Mode::Write), FileError::None);
    EXPECT_EQ(folder.read("marks.txt"), "");
}

TEST(ProgramDataFile, TakesLineEndsOfOtherSystemsAndLongLines) {
    const std::string longLine(200'000, 'k');
    const std::string atBufferEnd((64 << 10) - 1, 'k');
    const struct {
        std::string content;
        std::vector<std::string> lines;
    } cases[] = {
        {"", {}},
        {"a\r\nb\r\n", {"a", "b"}},
        {"a\nb", {"a", "b"}},
        {"\r\n\n\r\n", {"", "", ""}},
        {"a\rb\r\n", {"a\rb"}},
        {std::string("a\0\xFF\n", 4), {std::string("a\0\xFF", 3)}},
        {longLine + "\r\n" + longLine, {longLine, longLine}},
        {atBufferEnd + "\r\nb", {atBufferEnd, "b"}},  // CR and LF in two pieces of the read-ahead
    };
    const TemporaryFolder folder;
    ReachableFiles files(folder.path());
    for (const auto& [content, lines] : cases) {
        folder.write("f", content);
        ProgramDataFile file;
        ASSERT_EQ(file.open(files, folder / "f", Mode::Read), FileError::None);
        EXPECT_EQ(linesOf(file), lines) << content.substr(0, 20);
    }
}

TEST(ProgramDataFile, SaysWhyAFileDoesNotOpen) {
    const TemporaryFolder folder;
    ReachableFiles files(folder.path());
    folder.write("f", "");
    const struct {
        std::string name;
        Mode mode;
        FileError error;
    } cases[] = {
        {"", Mode::Read, FileError::BadNameOrNumber},
        {"  {}  ", Mode::Write, FileError::BadNameOrNumber},
        {std::string("a\0b", 3), Mode::Write, FileError::BadNameOrNumber},
        {folder / std::string(300, 'k'), Mode::Write, FileError::BadNameOrNumber},
        {folder / "missing", Mode::Read, FileError::NotFound},
        {folder / "no/such", Mode::Read, FileError::PathNotFound},
        {folder / "no/such", Mode::Append, FileError::PathNotFound},
        {folder / "f/such", Mode::Write, FileError::PathNotFound},
    };
    for (const auto& [name, mode, error] : cases) {
        ProgramDataFile file;
        EXPECT_EQ(file.open(files, name, mode), error) << name;
        EXPECT_FALSE(file.isOpen());
    }
}

TEST(ProgramDataFile, RefusesWhatTheModeDoesNotAllow) {
    const TemporaryFolder folder;
    ReachableFiles files(folder.path());
    folder.write("f", "a\r\n");
    ProgramDataFile file;
    std::string line;
    bool end = false;
    EXPECT_EQ(file.readLine(line), FileError::BadNameOrNumber);
    EXPECT_EQ(file.writeLine("a"), FileError::BadNameOrNumber);
    EXPECT_EQ(file.atEnd(end), FileError::BadNameOrNumber);
    EXPECT_EQ(file.close(), FileError::None);
    ASSERT_EQ(file.open(files, folder / "f", Mode::Read), FileError::None);
    EXPECT_EQ(file.writeLine("a"), FileError::BadMode);
    EXPECT_EQ(file.open(files, folder / "g", Mode::Write), FileError::AlreadyOpen);
    EXPECT_EQ(linesOf(file), std::vector<std::string>{"a"});  // still the file opened first
    file.close();
    ASSERT_EQ(file.open(files, folder / "g", Mode::Write), FileError::None);
    EXPECT_EQ(file.readLine(line), FileError::BadMode);
}

TEST(ProgramDataFile, GivesUpALineThatDoesNotEnd) {
    const TemporaryFolder folder;
    ReachableFiles files(folder.path());
    folder.write("f", "a\n");
    std::filesystem::resize_file(folder / "f", ProgramDataFile::longestLine + 100);
    ProgramDataFile file;
    std::string line;
    ASSERT_EQ(file.open(files, "f", Mode::Read), FileError::None);
    EXPECT_EQ(file.readLine(line), FileError::None);
    EXPECT_EQ(file.readLine(line), FileError::OutOfStringSpace);
}

}  // namespace
}  // namespace tolvan
