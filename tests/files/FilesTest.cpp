// The looking up of paths.
#include "host/TemporaryFolder.h"
#include "platform/files/PathLookup.h"

#include <gtest/gtest.h>

namespace tolvan {
namespace {

TEST(PathLookup, FindsEveryPartInTheSpellingOfTheDisk) {
    const TemporaryFolder folder;
    std::filesystem::create_directories(folder / "Data/inner");
    folder.write("Data/inner/Marks.TXT", "");
    const std::string base = folder.path();
    const struct {
        const char* typed;
        const char* found;
    } cases[] = {
        {"/Data/inner/Marks.TXT", "/Data/inner/Marks.TXT"},
        {"/DATA/Inner/marks.txt", "/Data/inner/Marks.TXT"},
        {"\\data\\INNER\\Marks.txt", "/Data/inner/Marks.TXT"},
        {"/data//inner/../INNER/", "/Data//inner/../inner/"},
        {"/data/New.txt", "/Data/New.txt"},  // what does not exist stays as typed
        {"/other/data/INNER", "/other/data/INNER"},
    };
    for (const auto& [typed, found] : cases) EXPECT_EQ(findPath(forwardSlashes(base + typed)), base + found) << typed;
}

#ifndef _WIN32
TEST(PathLookup, TakesANameAsTypedBeforeAnyOtherCase) {
    const TemporaryFolder folder;
    folder.write("same", "");
    folder.write("SAME", "");
    EXPECT_EQ(findPath(folder / "same"), folder / "same");
    EXPECT_EQ(findPath(folder / "Same"), folder / "SAME");
}
#endif

TEST(PathLookup, LooksFromTheWorkingFolderWhenThePathIsRelative) {
    const TemporaryFolder folder;
    folder.write("Kavita.tvp", "");
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(folder.path());
    EXPECT_EQ(findPath("kavita.TVP"), "Kavita.tvp");
    EXPECT_EQ(findPath("./kavita.TVP"), "./Kavita.tvp");
    EXPECT_EQ(findPath(""), "");
    std::filesystem::current_path(before);
}

}  // namespace
}  // namespace tolvan
