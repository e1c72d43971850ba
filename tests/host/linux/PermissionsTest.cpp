// Data files that the system refuses, or has no room for.
#include "host/TemporaryFolder.h"
#include "runtime/host/ProgramDataFile.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tolvan {

inline void PrintTo(FileError error, std::ostream* out) {
    *out << "error " << static_cast<int>(error);
}

namespace {

using Mode = ProgramDataFile::Mode;

// An ordinary user for a while, where the tests run as the superuser, whom no permission stops.
class OrdinaryUser {
  public:
    OrdinaryUser() : before_(::geteuid()) {
        if (before_ == 0) changed_ = ::seteuid(65534) == 0;
    }
    ~OrdinaryUser() {
        if (changed_) changed_ = ::seteuid(before_) != 0;
    }

  private:
    uid_t before_;
    bool changed_ = false;
};

TEST(ProgramDataFile, RespectsPermissions) {
    const TemporaryFolder folder;
    ReachableFiles files(folder.path());
    folder.write("f", "");
    ::chmod((folder / "f").c_str(), 0);
    ::chmod(folder.path().c_str(), 0555);
    const OrdinaryUser user;
    for (const auto& [name, mode] :
         {std::pair{"f", Mode::Read}, {"f", Mode::Write}, {"f", Mode::Append}, {"new", Mode::Write}}) {
        ProgramDataFile file;
        EXPECT_EQ(file.open(files, folder / name, mode), FileError::PermissionDenied) << name;
    }
}

TEST(ProgramDataFile, ReportsAFullDiskAtTheRecordThatDoesNotFit) {
    if (::access("/dev/full", W_OK) != 0) GTEST_SKIP() << "no /dev/full here";
    ProgramDataFile file;
    ReachableFiles files("/", ReachableFiles::Reach::Everything);
    ASSERT_EQ(file.open(files, "/dev/full", Mode::Append), FileError::None);
    EXPECT_EQ(file.writeLine("a"), FileError::DiskFull);
    EXPECT_EQ(file.close(), FileError::None);
}

}  // namespace
}  // namespace tolvan
