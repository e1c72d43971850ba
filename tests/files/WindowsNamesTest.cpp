// Names as Windows takes them; the rules hold wherever they are asked.
#include "platform/files/windows/FileNames.h"

#include <gtest/gtest.h>

namespace tolvan::windows {
namespace {

TEST(WindowsNames, RefusesWhatIsAnotherFileOrNone) {
    for (const char* name : {"a", "marks.txt", "\xE0\xA4\xAE\xE0\xA4\xB0\xE0\xA4\xBE.tvp", ".hidden", "a b",
                             "console.txt", "com", "com10", "lptx.txt", "nul1", "a.con"})
        EXPECT_TRUE(isFileName(name)) << name;
    for (const char* name : {"",          "con",       "CON",         "con.txt", "Nul.tar.gz", "aux .txt",
                             "com1",      "LPT9.txt",  "com\xC2\xB9", "conin$",  "a:b",        "marks.txt:stream",
                             "prog.tvp.", "prog.tvp ", "prog.tvp...", "a*",      "a?",         "a|b",
                             "a<b",       "a\"b",      "a\nb",        "a/b"})
        EXPECT_FALSE(isFileName(name)) << name;
    std::string longest;
    for (int i = 0; i < 255; ++i) longest += "\xE0\xA4\xAE";
    EXPECT_TRUE(isFileName(longest));
    EXPECT_FALSE(isFileName(longest + "k"));
}

TEST(WindowsNames, PartsTheRootFromTheNames) {
    const struct {
        const char* path;
        std::size_t root;
        bool isPath;
    } cases[] = {
        {"marks.txt", 0, true},
        {"a/../b\\c", 0, true},
        {"C:/a", 3, true},
        {"c:\\a", 3, true},
        {"C:a", 2, true},
        {"/a", 1, true},
        {"//server/share/a", 15, true},
        {"C:/a/con.txt", 0, false},
        {"C:/a/aux/b", 0, false},
        {"C:/a:b", 0, false},
        {"C:/a./b", 0, false},
        {"//./COM1", 0, false},
        {"//?/C:/a", 0, false},
        {"\\\\.\\pipe\\x", 0, false},
    };
    for (const auto& [path, root, is] : cases) {
        EXPECT_EQ(isPath(path), is) << path;
        EXPECT_EQ(is ? rootLength(path) : 0, root) << path;
    }
}

TEST(WindowsNames, KnowsWhatTheSystemWouldRun) {
    for (const char* name : {"a.exe", "a.txt.BAT", "C:/a/b.Vbs", "x.lnk"}) EXPECT_TRUE(runsByName(name)) << name;
    for (const char* name : {"a.txt", "exe", "bat.csv", "a.tvp"}) EXPECT_FALSE(runsByName(name)) << name;
}

}  // namespace
}  // namespace tolvan::windows
