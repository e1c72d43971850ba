// Files on Windows: names, long paths, files in use, saving.
#include "host/TemporaryFolder.h"
#include "platform/files/FileEntry.h"
#include "platform/files/OpenFile.h"
#include "platform/files/PathLookup.h"
#include "platform/files/ReplaceFile.h"
#include "platform/files/windows/SystemPath.h"

#include <cerrno>
#include <gtest/gtest.h>

namespace tolvan {
namespace {

const std::string marathi =
    "\xE0\xA4\xAE\xE0\xA4\xB0\xE0\xA4\xBE\xE0\xA4\xA0\xE0\xA5\x80 \xE0\xA4\xA8\xE0\xA4\xBE\xE0\xA4\xB5";

// With the last name in small letters.
std::string lowerPath(std::string path) {
    for (std::size_t i = path.rfind('/'); i < path.size(); ++i)
        if (path[i] >= 'A' && path[i] <= 'Z') path[i] = static_cast<char>(path[i] + 32);
    return path;
}

std::string contentOf(const std::string& path) {
    std::string content;
    const Descriptor file = openFile(path, FileUse::Read);
    return file.isOpen() && file.readAll(content, 1000) == 0 ? content : "error " + std::to_string(errno);
}

TEST(WindowsFiles, KeepsBytesUnderNamesOfAnyScriptAndLength) {
    const TemporaryFolder folder;
    std::string deep = folder.path() + "/" + marathi;
    for (int i = 0; i < 4; ++i) {
        ASSERT_TRUE(::CreateDirectoryW(windows::systemPath(deep)->c_str(), nullptr)) << deep;
        const std::string path = deep + "/" + marathi + ".TXT";
        ASSERT_EQ(replaceFile(path, "old"), 0) << path.size();
        ASSERT_EQ(replaceFile(path, "a\r\nb\n\x1A"), 0);
        EXPECT_EQ(openFile(path, FileUse::Append).write("c"), 0);
        EXPECT_EQ(contentOf(path),
                  "a\r\nb\n\x1A"
                  "c");
        EXPECT_EQ(findPath(lowerPath(path)), path);
        EXPECT_EQ(realPath(path), path);
        deep += "/" + std::string(100, 'k');
    }
    for (std::string path = deep; path.size() > folder.path().size(); path.resize(path.rfind('/'))) {
        removeFile(path + "/" + marathi + ".TXT");
        if (const auto place = windows::systemPath(path)) ::RemoveDirectoryW(place->c_str());
    }
}

TEST(WindowsFiles, RefusesWhatIsNoFileOfThatName) {
    const TemporaryFolder folder;
    folder.write("f", "kept");
    for (const char* name : {"con", "con.txt", "f:stream", "f.", "f ", "nul", "com1.txt"}) {
        errno = 0;
        const std::string path = folder.path() + "/" + name;
        EXPECT_FALSE(openFile(path, FileUse::Write).isOpen()) << name;
        EXPECT_EQ(errno, EINVAL) << name;
        EXPECT_EQ(replaceFile(path, "x"), EINVAL) << name;
        EXPECT_FALSE(openBeneath(folder.path(), name, FileUse::Write).isOpen()) << name;
    }
    EXPECT_EQ(folder.read("f"), "kept");
}

TEST(WindowsFiles, SaysWhyAFileDoesNotOpen) {
    const TemporaryFolder folder;
    folder.write("f", "");
    std::filesystem::create_directory(folder / "folder");
    const windows::Handle busy(
        ::CreateFileW(windows::systemPath(folder / "f")->c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
    ASSERT_TRUE(busy.isOpen());
    const struct {
        const char* name;
        int error;
    } cases[] = {{"f", EACCES}, {"folder", EISDIR}, {"none", ENOENT}, {"none/f", ENOENT}};
    for (const auto& [name, error] : cases) {
        errno = 0;
        EXPECT_FALSE(openFile(folder / name, FileUse::Read).isOpen()) << name;
        EXPECT_EQ(errno, error) << name;
    }
    EXPECT_EQ(replaceFile(folder / "f", "new"), EACCES) << "somebody else has it open";
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 2) << "and nothing is left";
}

TEST(WindowsFiles, SavingKeepsMarksAndSweepsWhatWasKilled) {
    const TemporaryFolder folder;
    folder.write("f", "old");
    folder.write(".tolvan-saving-1-1", "half");
    const std::wstring place = *windows::systemPath(folder / "f");
    ASSERT_TRUE(::SetFileAttributesW(place.c_str(), FILE_ATTRIBUTE_HIDDEN));
    removeUnfinishedSaves(folder.path());
    EXPECT_FALSE(std::filesystem::exists(folder / ".tolvan-saving-1-1"));
    EXPECT_EQ(replaceFile(folder / "f", "new"), 0);
    EXPECT_EQ(folder.read("f"), "new");
    EXPECT_NE(::GetFileAttributesW(place.c_str()) & FILE_ATTRIBUTE_HIDDEN, 0U);
    ASSERT_TRUE(::SetFileAttributesW(place.c_str(), FILE_ATTRIBUTE_READONLY));
    EXPECT_EQ(replaceFile(folder / "f", "newer"), EACCES);
    ::SetFileAttributesW(place.c_str(), FILE_ATTRIBUTE_NORMAL);
    EXPECT_EQ(folder.read("f"), "new");
}

}  // namespace
}  // namespace tolvan
