// "tvp check" where each program runs in another start of tvp: the class of the manual, and programs that mean harm.
#include "support/Examples.h"
#include "tvp/TvpProcess.h"

#include <gmock/gmock.h>

namespace tolvan::classroom {
namespace {

std::string csvOf(const TvpProcess& tvp) {
    std::string table = tvp.folder().read("out.csv");
    std::erase(table, '\r');
    return table;
}

TEST(Class, OfTheManual) {
    TvpProcess tvp;
    const std::string folder = sourceFolder() + "/docs/classroom/";
    const TvpResult result =
        tvp.run({"check", folder + "class", "--task", folder + "task", "--csv=out.csv", "--no-cache"});
    EXPECT_EQ(result.status, 0) << result.errors;
    EXPECT_EQ(csvOf(tvp), contentOf(folder + "report.csv"));
}

TEST(Class, ThatMeansHarmDoesNone) {
    const struct {
        const char* name;
        const char* roman;
        const char* verdict;
    } programs[] = {
        {"asks", "ghe A\nghe A", "error 62 line 2"},
        {"divides", "A = 0\ndAkhav 1 / A", "error 11 line 2"},
        {"endless", "jovar 1 = 1 tovar\nkar", "time"},
        {"good", "ghe A\ndAkhav A + 1", "right"},
        {"grows", "A = #\"k\"#\njovar 1 = 1 tovar\nA = A & A\nkar", "memory"},
        {"prints", "jovar 1 = 1 tovar\ndAkhav #\"kkkkkkkkkkkkkkkkkkkkkkkkkkkkkkkk\"#\nkar", "output"},
        {"solution", "ughaD #\"../../task/solution.tvp\"#, vAchaNyAsAThI\nvAch A\ndAkhav A", "files"},
        {"system", "ughaD #\"C:\\windows\\win.ini\"#, vAchaNyAsAThI\nvAch A\ndAkhav A", "files"},
        {"writes", "ughaD #\"../good.tvp\"#, lihiNyAsAThI\nlihI 1", "files"},
    };
    TvpProcess tvp;
    for (const char* const folder : {"task", "class"}) std::filesystem::create_directory(tvp.folder() / folder);
    tvp.folder().write("task/1.in", "41\n");
    tvp.folder().write("task/solution.tvp", "caption\nghe A\ndAkhav A + 1\n");
    std::string table = "name,points,max,1,alike\n";
    for (const auto& [name, roman, verdict] : programs) {
        tvp.folder().write("class/" + std::string(name) + ".tvp", "caption\r\n" + std::string(roman) + "\r\n");
        table += std::string(name) + (verdict == std::string_view("right") ? ",1,1," : ",0,1,") + verdict + ",\n";
    }
    const TvpResult result = tvp.run({"check", "class", "--task=task", "--csv=out.csv", "--no-cache"});
    EXPECT_EQ(result.status, 0) << result.errors;
    EXPECT_EQ(csvOf(tvp), table);
}

}  // namespace
}  // namespace tolvan::classroom
