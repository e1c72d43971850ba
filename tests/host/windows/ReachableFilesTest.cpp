// What a program reaches on Windows, with names as a hostile one would give them.
#include "host/TemporaryFolder.h"
#include "platform/files/windows/SystemPath.h"
#include "runtime/host/ReachableFiles.h"

#include <gtest/gtest.h>

namespace tolvan {

inline void PrintTo(FileError error, std::ostream* out) {
    *out << "error " << static_cast<int>(error);
}

namespace {

using Mode = DataFileMode;

TEST(ReachableFiles, ReachesItsFolderOnWindows) {
    const TemporaryFolder around;
    for (const char* inner : {"Own/Data", "ownother"}) std::filesystem::create_directories(around / inner);
    for (const char* file : {"secret", "ownother/secret", "Own/marks.txt", "Own/Data/marks.txt", "Own/.hidden",
                             "Own/marked", "Own/prog.tvp", "Own/busy"})
        around.write(file, "kept");
    ::SetFileAttributesW(windows::systemPath(around / "Own/marked")->c_str(), FILE_ATTRIBUTE_HIDDEN);
    const windows::Handle busy(::CreateFileW(windows::systemPath(around / "Own/busy")->c_str(), GENERIC_READ, 0,
                                             nullptr, OPEN_EXISTING, 0, nullptr));
    ReachableFiles files(around / "own");
    std::vector<std::string> asked;
    files.setConsent([&](const std::string& path, bool) {
        asked.push_back(path);
        return false;
    });
    constexpr FileError none = FileError::None;
    constexpr FileError denied = FileError::PermissionDenied;
    constexpr FileError bad = FileError::BadNameOrNumber;
    std::string otherDrive = around / "Own/marks.txt";
    otherDrive[0] = otherDrive[0] == 'Y' ? 'X' : 'Y';
    const struct {
        std::string name;
        FileError reading;
        FileError writing;
    } cases[] = {
        {"marks.txt", none, none},
        {"MARKS.TXT", none, none},
        {"DATA\\marks.TXT", none, none},
        {around / "own/MARKS.txt", none, none},
        {"new.txt", FileError::NotFound, none},
        {"no\\such", FileError::PathNotFound, FileError::PathNotFound},
        {"prog.tvp", none, denied},
        {"PROG.TVP", none, denied},
        {"prog.tvp.", bad, bad},  // the system would drop the full stop
        {"prog.tvp ", bad, bad},
        {"new.bat", FileError::NotFound, denied},
        {"new.txt.LNK", FileError::NotFound, denied},
        {"..\\secret", denied, denied},
        {"Data/../../secret", denied, denied},
        {"..\\ownother\\secret", denied, denied},
        {otherDrive, denied, denied},
        {"C:\\windows\\win.ini", denied, denied},
        {"C:marks.txt", none, none},  // of the own folder, where names start
        {"\\\\server\\share\\file", denied, denied},
        {"\\\\.\\C:", denied, denied},
        {"marks.txt:stream", bad, bad},
        {"con", bad, bad},
        {"con.txt", bad, bad},
        {"Data\\nul", bad, bad},
        {"a*b", bad, bad},
        {".hidden", denied, denied},
        {"marked", denied, denied},
        {"busy", denied, denied},
        {"Data", FileError::PathAccess, FileError::PathAccess},
        {".", FileError::PathAccess, FileError::PathAccess},
    };
    for (const auto& [name, reading, writing] : cases)
        for (const Mode mode : {Mode::Read, Mode::Append, Mode::Write}) {
            Descriptor file;
            EXPECT_EQ(files.open(name, mode, file), mode == Mode::Read ? reading : writing) << name;
        }
    for (const char* file : {"secret", "ownother/secret", "Own/.hidden", "Own/prog.tvp"})
        EXPECT_EQ(around.read(file), "kept") << file;
    EXPECT_FALSE(std::filesystem::exists(around / "Own/new.bat"));
    EXPECT_EQ(std::count(asked.begin(), asked.end(), around / "secret"), 2) << "once for each use";
}

}  // namespace
}  // namespace tolvan
