// Saving, with every call of the system failing once: this program's own definitions take the place of the C library's.
#include "host/TemporaryFolder.h"
#include "platform/files/ReplaceFile.h"

#include <cerrno>
#include <cstdarg>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

int callsUntilFailure = 0;  // 0: none fails
int errorOfFailure = 0;

// The system's call, or a failure in its place.
template <class... Arguments>
long callOrFail(long number, Arguments... arguments) {
    if (callsUntilFailure > 0 && --callsUntilFailure == 0) {
        errno = errorOfFailure;
        return -1;
    }
    return ::syscall(number, arguments...);
}

}  // namespace

extern "C" {
int open(const char* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(rest, mode_t) : 0;
    va_end(rest);
    return static_cast<int>(callOrFail(SYS_openat, AT_FDCWD, path, flags, mode));
}
ssize_t write(int file, const void* bytes, size_t size) {
    return callOrFail(SYS_write, file, bytes, size);
}
int fsync(int file) {
    return static_cast<int>(callOrFail(SYS_fsync, file));
}
int fchmod(int file, mode_t mode) noexcept {
    return static_cast<int>(callOrFail(SYS_fchmod, file, mode));
}
int close(int file) {
    return static_cast<int>(callOrFail(SYS_close, file));
}
int rename(const char* from, const char* to) noexcept {
    return static_cast<int>(callOrFail(SYS_rename, from, to));
}
}

namespace tolvan {
namespace {

namespace fs = std::filesystem;

std::size_t entriesIn(const TemporaryFolder& folder) {
    return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder.path()), {}));
}

TEST(ReplaceFile, AnyCallThatFailsLeavesTheOldContentOrSaysNothingWrong) {
    constexpr int errors[] = {EIO, ENOSPC, EDQUOT};
    int failures = 0;
    for (int call = 1; call < 20; ++call) {
        const TemporaryFolder folder;
        folder.write("f", "old");
        callsUntilFailure = call;
        errorOfFailure = errors[call % 3];
        const int error = replaceFile(folder / "f", "new content");
        const bool hasFailed = callsUntilFailure == 0;
        callsUntilFailure = 0;
        if (!hasFailed) break;
        ++failures;
        const std::string content = folder.read("f");
        EXPECT_EQ(entriesIn(folder), 1U) << call;
        if (error == 0) {
            EXPECT_EQ(content, "new content") << call;
        } else {
            EXPECT_TRUE(content == "old" || content == "new content") << call << content;
        }
    }
    EXPECT_GE(failures, 8);  // open, fchmod, write, fsync, rename, close, and the folder's open, fsync, close
}

// What did not reach the disk is not saved.
TEST(ReplaceFile, AFailedSyncIsAFailedSave) {
    const TemporaryFolder folder;
    folder.write("f", "old");
    callsUntilFailure = 4;  // after open, fchmod and write
    errorOfFailure = EIO;
    EXPECT_EQ(replaceFile(folder / "f", "new"), EIO);
    EXPECT_EQ(folder.read("f"), "old");
    callsUntilFailure = 4;
    errorOfFailure = EINVAL;  // a file system that knows no sync
    EXPECT_EQ(replaceFile(folder / "f", "new"), 0);
}

TEST(ReplaceFile, KeepsPermissionsAndLinks) {
    const TemporaryFolder folder;
    folder.write("f", "old");
    ::chmod((folder / "f").c_str(), 0640);
    fs::create_symlink("f", folder / "link");
    fs::create_symlink("new", folder / "dangling");
    fs::create_directory(folder / "folder");
    EXPECT_EQ(replaceFile(folder / "link", "1"), 0);
    EXPECT_EQ(replaceFile(folder / "dangling", "2"), 0);
    EXPECT_EQ(replaceFile(folder / "private", "3", 0600), 0);
    EXPECT_EQ(replaceFile(folder / "folder", "4"), EISDIR);
    EXPECT_EQ(replaceFile("/dev/null", "4"), EINVAL);
    EXPECT_EQ(replaceFile(folder / "none/f", "4"), ENOENT);
    EXPECT_TRUE(fs::is_symlink(folder / "link") && fs::is_symlink(folder / "dangling"));
    EXPECT_EQ(folder.read("f") + folder.read("new") + folder.read("private"), "123");
    const auto permissions = [&](const char* name) { return fs::status(folder / name).permissions(); };
    EXPECT_EQ(permissions("f"), static_cast<fs::perms>(0640));
    EXPECT_EQ(permissions("private"), static_cast<fs::perms>(0600));
}

TEST(ReplaceFile, RemovesWhatKilledSavesLeft) {
    const TemporaryFolder folder;
    folder.write("f", "old");
    for (const char* name : {".tolvan-saving-1-1", ".tolvan-saving-2-1", ".other"}) folder.write(name, "half");
    const int busy = ::open((folder / ".tolvan-saving-2-1").c_str(), O_RDONLY);
    ASSERT_EQ(::flock(busy, LOCK_EX), 0);
    removeUnfinishedSaves(folder.path());
    EXPECT_FALSE(fs::exists(folder / ".tolvan-saving-1-1"));
    EXPECT_TRUE(fs::exists(folder / ".tolvan-saving-2-1"));  // still being written
    EXPECT_EQ(entriesIn(folder), 3U);
    ::close(busy);
}

}  // namespace
}  // namespace tolvan
