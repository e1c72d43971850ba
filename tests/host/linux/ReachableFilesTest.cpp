// What a program reaches, with names as a hostile one would give them.
#include "host/TemporaryFolder.h"
#include "platform/files/linux/OpenBeneathByNames.h"
#include "runtime/host/ReachableFiles.h"

#include <cerrno>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace tolvan {

inline void PrintTo(FileError error, std::ostream* out) {
    *out << "error " << static_cast<int>(error);
}

namespace {

namespace fs = std::filesystem;
using Mode = DataFileMode;
using Reach = ReachableFiles::Reach;

// A program's folder with something of everything, in a folder that it must not reach.
class ReachableFilesTest : public testing::Test {
  protected:
    ReachableFilesTest() : files(around / "own") {
        for (const char* inner : {"own/data/.git", "own/.config", "ownother"}) fs::create_directories(around / inner);
        for (const char* file : {"secret", "ownother/secret", "own/marks.txt", "own/data/marks.txt", "own/.hidden",
                                 "own/.config/secret", "own/prog.tvp", "own/prog.EXE", "own/tool", "own/shared"})
            around.write(file, "kept");
        fs::permissions(around / "own/tool", fs::perms::owner_exec, fs::perm_options::add);
        fs::create_symlink("../secret", around / "own/link");
        fs::create_symlink("..", around / "own/up");
        fs::create_symlink("marks.txt", around / "own/inside");
        fs::create_symlink("../new", around / "own/dangling");
        fs::create_hard_link(around / "own/shared", around / "alias");
        if (::mkfifo((around / "own/pipe").c_str(), 0600) != 0) ADD_FAILURE() << "no pipe";
        files.setConsent([this](const std::string& path, bool) {
            asked.push_back(path);
            return consents;
        });
    }

    FileError open(const std::string& name, Mode mode) {
        Descriptor file;
        const FileError error = files.open(name, mode, file);
        EXPECT_EQ(file.isOpen(), error == FileError::None) << name;
        return error;
    }

    TemporaryFolder around;
    ReachableFiles files;
    bool consents = false;
    std::vector<std::string> asked;
};

TEST_F(ReachableFilesTest, ReachesItsFolderAndAsksAboutEverythingElse) {
    const struct {
        std::string name;
        FileError reading;
        FileError writing;
    } cases[] = {
        {"marks.txt", FileError::None, FileError::None},
        {"DATA\\Marks.TXT", FileError::None, FileError::None},
        {"data/../marks.txt", FileError::None, FileError::None},
        {around / "own/marks.txt", FileError::None, FileError::None},
        {"./new.txt", FileError::NotFound, FileError::None},
        {"no/such", FileError::PathNotFound, FileError::PathNotFound},
        {"prog.tvp", FileError::None, FileError::PermissionDenied},
        {"PROG.exe", FileError::None, FileError::PermissionDenied},
        {"tool", FileError::None, FileError::PermissionDenied},
        {"shared", FileError::None, FileError::PermissionDenied},  // its other name may be anywhere
        {"new.TVP", FileError::NotFound, FileError::PermissionDenied},
        {"../secret", FileError::PermissionDenied, FileError::PermissionDenied},
        {"..\\secret", FileError::PermissionDenied, FileError::PermissionDenied},
        {"data/../../secret", FileError::PermissionDenied, FileError::PermissionDenied},
        {"../ownother/secret", FileError::PermissionDenied, FileError::PermissionDenied},
        {around / "secret", FileError::PermissionDenied, FileError::PermissionDenied},
        {"/etc/passwd", FileError::PermissionDenied, FileError::PermissionDenied},
        {"/proc/self/environ", FileError::PermissionDenied, FileError::PermissionDenied},
        {"/dev/tty", FileError::PermissionDenied, FileError::PermissionDenied},
        {"/no/such/file", FileError::PermissionDenied, FileError::PermissionDenied},  // nor does it learn what exists
        {"link", FileError::PermissionDenied, FileError::PermissionDenied},
        {"up/secret", FileError::PermissionDenied, FileError::PermissionDenied},
        {"up/own/marks.txt", FileError::PermissionDenied, FileError::PermissionDenied},
        {"inside", FileError::PermissionDenied, FileError::PermissionDenied},
        {"dangling", FileError::PermissionDenied, FileError::PermissionDenied},
        {".hidden", FileError::PermissionDenied, FileError::PermissionDenied},
        {".new", FileError::PermissionDenied, FileError::PermissionDenied},
        {".config/secret", FileError::PermissionDenied, FileError::PermissionDenied},
        {"data/.git/new", FileError::PermissionDenied, FileError::PermissionDenied},
        {"pipe", FileError::PathAccess, FileError::PathAccess},
        {"data", FileError::PathAccess, FileError::PathAccess},
        {".", FileError::PathAccess, FileError::PathAccess},
        {around / "own", FileError::PathAccess, FileError::PathAccess},
    };
    for (const auto& [name, reading, writing] : cases) {
        EXPECT_EQ(open(name, Mode::Read), reading) << name;
        EXPECT_EQ(open(name, Mode::Append), writing) << name;
        EXPECT_EQ(open(name, Mode::Write), writing) << name;
    }
    for (const char* file : {"secret", "ownother/secret", "own/.hidden", "own/.config/secret", "own/prog.tvp",
                             "own/prog.EXE", "own/tool", "own/shared"})
        EXPECT_EQ(around.read(file), "kept") << file;
    for (const char* file : {"new", "own/.new", "own/new.TVP"}) EXPECT_FALSE(fs::exists(around / file)) << file;
}

TEST_F(ReachableFilesTest, AsksOnceForEachFileInARunAndNamesTheFileItself) {
    for (const char* name : {"link", "../secret", "up/secret"}) open(name, Mode::Read);
    EXPECT_EQ(asked, std::vector<std::string>{around / "secret"});
    open("link", Mode::Append);
    EXPECT_EQ(asked.size(), 2U) << "writing is another question";
    consents = true;
    EXPECT_EQ(open("link", Mode::Read), FileError::PermissionDenied) << "the answer stands";
    files.forgetAnswers();
    EXPECT_EQ(open("link", Mode::Write), FileError::None);
    EXPECT_EQ(around.read("secret"), "");
    EXPECT_EQ(open("tool", Mode::Write), FileError::None);
    EXPECT_EQ(open("/dev/null", Mode::Write), FileError::None);
    EXPECT_EQ(open(around / "missing", Mode::Read), FileError::NotFound);
}

TEST_F(ReachableFilesTest, WritesNoMoreThanItsSpace) {
    files.setSpace(3 * 4096 - 1);
    EXPECT_EQ(open("a", Mode::Write), FileError::None);
    EXPECT_EQ(open("b", Mode::Append), FileError::None);
    EXPECT_EQ(open("c", Mode::Write), FileError::DiskFull);
    EXPECT_EQ(open("marks.txt", Mode::Read), FileError::None);
    EXPECT_FALSE(fs::exists(around / "own/c"));
}

TEST_F(ReachableFilesTest, NothingAndEverything) {
    files = ReachableFiles(around / "own", Reach::Nothing);
    EXPECT_EQ(open("marks.txt", Mode::Read), FileError::PermissionDenied);
    files = ReachableFiles(around / "own", Reach::Everything);
    for (const char* name : {"marks.txt", "link", ".hidden", "../secret", "prog.tvp"})
        EXPECT_EQ(open(name, Mode::Write), FileError::None) << name;
    EXPECT_EQ(open("pipe", Mode::Read), FileError::PathAccess);
}

// Kernels without a call for it are served in the same way.
TEST_F(ReachableFilesTest, BothWaysOfOpeningBeneathAFolderAgree) {
    const struct {
        const char* path;
        int error;
    } cases[] = {{"marks.txt", 0},  {"data/marks.txt", 0}, {"link", ELOOP},        {"up/secret", ELOOP},
                 {"inside", ELOOP}, {"../secret", EXDEV},  {"/etc/passwd", EXDEV}, {"marks.txt/x", ENOTDIR},
                 {"none", ENOENT},  {"none/x", ENOENT}};
    for (const auto& [path, error] : cases)
        for (const auto way : {&openBeneath, &openBeneathByNames}) {
            errno = 0;
            EXPECT_EQ(way(around / "own", path, FileUse::Read).isOpen(), error == 0) << path;
            EXPECT_EQ(errno, error) << path;
        }
}

}  // namespace
}  // namespace tolvan
