// Disks on which nothing can be written, or not for good.
#include "editor/EditorFixture.h"
#include "runtime/frmExec.h"

#include <cerrno>
#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

// A disk that takes a file and then loses its folder's entry.
static bool foldersCannotSync = false;
extern "C" int fsync(int file) {
    struct stat entry {};
    if (foldersCannotSync && ::fstat(file, &entry) == 0 && S_ISDIR(entry.st_mode)) {
        errno = EIO;
        return -1;
    }
    return static_cast<int>(::syscall(SYS_fsync, file));
}

namespace tolvan {
namespace {

class FullDiskTest : public EditorTest {
  protected:
    static bool consoleIsVisible() {
        for (const QWidget* window : QApplication::topLevelWidgets())
            if (qobject_cast<const frmExec*>(window) != nullptr) return window->isVisible();
        return false;
    }
};

// What a failed save left in the file is not taken for somebody else's.
TEST_F(FullDiskTest, AFailedSaveCanBeRepeated) {
    ASSERT_TRUE(editor->OpenFile(writeFile("a.tvp", "\r\ndAkhav 1\r\n")));
    type("x");
    foldersCannotSync = true;
    press(Qt::Key_S, Qt::ControlModifier);
    foldersCannotSync = false;
    EXPECT_EQ(user.takeTold().size(), 1U);
    EXPECT_TRUE(editor->document().isDirty());
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_THAT(user.takeTold(), testing::IsEmpty());
    EXPECT_FALSE(editor->document().isDirty());
}

// As long as it lives, no file can be written.
class FullDisk {
  public:
    FullDisk() {
        std::signal(SIGXFSZ, SIG_IGN);
        ::getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit none{0, before_.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &none);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;
    ~FullDisk() { ::setrlimit(RLIMIT_FSIZE, &before_); }

  private:
    rlimit before_{};
};

// An example of the system cannot be saved, nor need it be as long as it is unchanged.
TEST_F(FullDiskTest, WhatCannotBeSavedIsToldOnlyWhenItIsChanged) {
    state.SaveBeforeExecute = true;
    const QByteArray content = "caption\r\na = 1\r\n";
    const QString example = writeFile("example.tvp", content);
    editor->OpenFile(example);
    const FullDisk fullDisk;
    press(Qt::Key_F5);
    EXPECT_TRUE(consoleIsVisible());
    EXPECT_THAT(user.takeTold(), testing::IsEmpty());
    toFront();
    type("b");
    press(Qt::Key_F5);
    EXPECT_THAT(user.takeTold(), testing::SizeIs(1));
    EXPECT_EQ(contentOf(example), content);
}

}  // namespace
}  // namespace tolvan
