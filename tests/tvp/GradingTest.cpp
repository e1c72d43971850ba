// The loop that the README gives for checking the programs of a class, with a class that means harm.
#include "support/Folders.h"
#include "tvp/TvpProcess.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tolvan {
namespace {

// The lines of the README's loop, with less patience.
std::string gradingLoop() {
    std::ostringstream content;
    content << std::ifstream(sourceFolder() + "/README.md").rdbuf();
    const std::string text = content.str();
    const std::size_t start = text.find("    for program in class");
    const std::size_t end = text.find("    done\n", start);
    std::string loop = text.substr(start, end - start) + "    done\n";
    const std::string_view patience = "--seconds=10 ";
    loop.replace(loop.find(patience), patience.size(), "--seconds=1 ");
    return loop;
}

TEST(Grading, IsSafeWithAHostileClass) {
    const struct {
        const char* name;
        const char* roman;
        const char* verdict;
    } programs[] = {
        {"good", "ghe A\ndAkhav A + 1", "right"},
        {"wrong", "dAkhav 1", "look"},
        {"reads", "ughaD #\"../solution.out\"#, vAchaNyAsAThI\nvAch A\ndAkhav A", "look"},
        {"proc", "ughaD #\"/proc/self/cwd/solution.out\"#, vAchaNyAsAThI\nvAch A\ndAkhav A", "look"},
        {"copies", "ughaD #\"good.tvp\"#, vAchaNyAsAThI\nvAch A\nvAch A\ndAkhav A", "look"},
        {"writes", "ughaD #\"good.tvp\"#, lihiNyAsAThI\nlihI 1", "look"},
        {"appends", "ughaD #\"../.profile\"#, joDaNyAsAThI\nlihI #\"touch hurt\"#", "look"},
        {"fills", "jovar 1 = 1 tovar\nughaD #\"f\"# & A, lihiNyAsAThI\nlihI A\nbaMd\nA = A + 1\nkar", "look"},
        {"prints", "jovar 1 = 1 tovar\ndAkhav #\"kkkkkkkkkkkkkkkkkkkkkkkkkkkkkkkk\"#\nkar", "look"},
        {"grows", "A = #\"k\"#\njovar 1 = 1 tovar\nA = A & A\nkar", "look"},
        {"endless", "jovar 1 = 1 tovar\nkar", "look"},
    };
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "class");
    folder.write("solution.out", "42\n");
    folder.write("answers.txt", "41\n");
    std::string expected;
    for (const auto& [name, roman, verdict] : programs)
        folder.write(std::string("class/") + name + ".tvp", std::string("caption\n") + roman + "\n");
    const std::string good = folder.read("class/good.tvp");
    folder.write("loop", "PATH=" + programFolder() + ":$PATH\ncd " + folder.path() + "\n" + gradingLoop());
    EXPECT_EQ(std::system(("sh " + (folder / "loop") + " >" + (folder / "verdicts") + " 2>/dev/null").c_str()), 0);
    const std::string verdicts = folder.read("verdicts");
    for (const auto& [name, roman, verdict] : programs)
        EXPECT_THAT(verdicts, testing::HasSubstr(std::string(name) + ".tvp: " + verdict)) << roman;
    EXPECT_EQ(folder.read("class/good.tvp"), good);
    EXPECT_FALSE(std::filesystem::exists(folder / ".profile"));
    const auto files = std::filesystem::directory_iterator(folder / "class");
    EXPECT_EQ(static_cast<std::size_t>(std::distance(begin(files), end(files))), std::size(programs));
}

}  // namespace
}  // namespace tolvan
