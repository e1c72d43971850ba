// "tvp check" with whole classes: that of the manual, and others that mean harm.
#include "support/Examples.h"
#include "tvp/TvpProcess.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>

namespace tolvan {
namespace {

using testing::HasSubstr;
using testing::Not;

struct Class : testing::Test {
    Class() {
        for (const char* const folder : {"task", "class"}) std::filesystem::create_directory(tvp.folder() / folder);
        ::setenv("XDG_CACHE_HOME", tvp.folder().path().c_str(), 1);
    }

    void handIn(const std::string& name, std::string_view roman) {
        tvp.folder().write("class/" + name + ".tvp", "caption\r\n" + std::string(roman) + "\r\n");
    }
    void task(std::string_view name, std::string_view content) {
        tvp.folder().write("task/" + std::string(name), content);
    }

    // The table; its lines end as those of other files here.
    std::string check(std::vector<std::string> more = {"--no-cache"}) {
        std::vector<std::string> arguments{"check", "class", "--task", "task", "--csv", "out.csv"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        result = tvp.run(arguments);
        return csv();
    }
    std::string csv() const {
        std::string table = tvp.folder().read("out.csv");
        std::erase(table, '\r');
        return table;
    }

    TvpProcess tvp;
    TvpResult result;
};

TEST_F(Class, OfTheManual) {
    const std::string folder = sourceFolder() + "/docs/classroom/";
    result = tvp.run({"check", folder + "class", "--task", folder + "task", "--csv=out.csv", "--html=out.html"});
    EXPECT_EQ(result.status, 0) << result.errors;
    EXPECT_EQ(csv(), contentOf(folder + "report.csv"));
    EXPECT_EQ(result.output, contentOf(folder + "report.txt"));
    EXPECT_THAT(tvp.folder().read("out.html"), HasSubstr("</html>"));
}

TEST_F(Class, ThatMeansHarmDoesNone) {
    const struct {
        const char* name;
        const char* roman;
        const char* verdict;
    } programs[] = {
        {"good", "ghe A\ndAkhav A + 1", "right"},
        {"wrong", "dAkhav 1", "wrong"},
        {"own-file", "ughaD #\"data.txt\"#, vAchaNyAsAThI\nvAch A\nbaMd\ndAkhav A", "right"},
        {"solution", "ughaD #\"../../task/solution.tvp\"#, vAchaNyAsAThI\nvAch A\ndAkhav A", "files"},
        {"proc", "ughaD #\"/proc/self/mem\"#, vAchaNyAsAThI\nvAch A\ndAkhav A", "files"},
        {"copies", "ughaD #\"good.tvp\"#, vAchaNyAsAThI\nvAch A\nvAch A\ndAkhav A", "error 53 line 1"},
        {"writes", "ughaD #\"../good.tvp\"#, lihiNyAsAThI\nlihI 1", "files"},
        {"fills", "jovar 1 = 1 tovar\nughaD #\"f\"# & A, lihiNyAsAThI\nlihI A\nbaMd\nA = A + 1\nkar", "files"},
        {"swells", "ughaD #\"f\"#, lihiNyAsAThI\nA = #\"kkkkkkkkkkkkkkkkkkkk\"#\njovar 1 = 1 tovar\nlihI A\nkar",
         "files"},
        {"prints", "jovar 1 = 1 tovar\ndAkhav #\"kkkkkkkkkkkkkkkkkkkkkkkkkkkkkkkk\"#\nkar", "output"},
        {"grows", "A = #\"k\"#\njovar 1 = 1 tovar\nA = A & A\nkar", "memory"},
        {"endless", "jovar 1 = 1 tovar\nkar", "time"},
        {"sleeps", "jovar 1 = 1 tovar\nvishrAMtI 1000\nkar", "time"},
        {"divides", "\n\nA = 0\ndAkhav 1 / A", "error 11 line 4"},
        {"asks", "ghe A\nghe A", "error 62 line 2"},
        {"colours", "dAkhav #\"\x1B[2J\"#", "wrong"},
    };
    for (const auto& [name, roman, verdict] : programs) handIn(name, roman);
    task("1.in", "41\n");
    task("solution.tvp", "caption\nghe A\ndAkhav A + 1\n");
    task("data.txt", "42\n");
    task("task.ini", "seconds = 0.3\nmemory = 16M\n");
    tvp.folder().write("class/empty.tvp", "");
    std::filesystem::create_symlink("../task/solution.tvp", tvp.folder() / "class/link.tvp");
    std::filesystem::create_symlink("/dev/zero", tvp.folder() / "class/zero.tvp");
    const std::string good = tvp.folder().read("class/good.tvp");
    const std::string table = check();
    for (const auto& [name, roman, verdict] : programs) {
        const bool right = std::string_view(verdict) == "right";
        EXPECT_THAT(table, HasSubstr(std::string("\n") + name + (right ? ",1,1," : ",0,1,") + verdict + ",")) << roman;
    }
    for (const char* const name : {"empty", "link", "zero"})
        EXPECT_THAT(table, HasSubstr(std::string(name) + ",0,1,unreadable,\n"));
    EXPECT_EQ(tvp.folder().read("class/good.tvp"), good);
    EXPECT_THAT(result.output, Not(HasSubstr("\x1B")));
}

TEST_F(Class, IsNamedAndEscapedSafely) {
    task("1.out", "1\n");
    handIn("=1+1", "dAkhav 1");
    handIn("a,\"b\"", "dAkhav 1");
    handIn("<script>alert(1)<", "dAkhav #\"<b>&amp;</script>\"#");
    std::filesystem::create_directories(tvp.folder() / "class/ravI/old");
    std::filesystem::create_directories(tvp.folder() / "class/sitA");
    handIn("ravI/one", "dAkhav 1");
    handIn("ravI/old/two", "dAkhav 2");
    handIn("sitA/any", "dAkhav 1");
    handIn(".hidden", "dAkhav 1");
    EXPECT_EQ(check({"--no-cache", "--html", "out.html"}),
              "name,points,max,1,alike\n"
              "<script>alert(1)<,0,1,wrong,\n"
              "'=1+1,1,1,right,\n"
              "\"a,\"\"b\"\"\",1,1,right,\n"
              "ravI/old/two,0,1,wrong,\n"
              "ravI/one,1,1,right,\n"
              "sitA,1,1,right,\n");
    const std::string page = tvp.folder().read("out.html");
    for (const char* const markup : {"<script>alert", "<b>&amp;", "http:", "https:"})
        EXPECT_THAT(page, Not(HasSubstr(markup)));
    EXPECT_THAT(page, HasSubstr("&lt;script&gt;alert(1)&lt;"));
}

TEST_F(Class, IsComparedByWhatItDraws) {
    task("solution.tvp", "caption\n(10, 10) pAsun (100, 60) paryaMt Ayat kADh\n");
    handIn("lines",
           "(10, 10) pAsun (100, 10) paryaMt regh Akh\n(100, 60) paryaMt regh Akh\n"
           "(10, 60) paryaMt regh Akh\n(10, 10) paryaMt regh Akh");
    handIn("near", "(11, 11) pAsun (100, 61) paryaMt Ayat kADh");
    handIn("far", "(10, 10) pAsun (100, 80) paryaMt Ayat kADh");
    handIn("red", "(10, 10) pAsun (100, 60) paryaMt raMg(255, 0, 0) raMgAche Ayat kADh");
    handIn("nothing", "dAkhav 1");
    const std::string others = "nothing,0,1,wrong,\nred,0,1,wrong,\n";
    EXPECT_EQ(check(), "name,points,max,1,alike\nfar,0,1,wrong,\nlines,1,1,right,\nnear,1,1,right,\n" + others);
    task("task.ini", "drawing = calls\n");
    EXPECT_EQ(check(), "name,points,max,1,alike\nfar,0,1,wrong,\nlines,0,1,wrong,\nnear,1,1,right,\n" + others);
}

TEST_F(Class, HasProgramsThatAreAlike) {
    const auto program = [](const std::string& name, const std::string& limit) {
        std::string text = "suchanA " + name + "\n" + name + " = 0\n";
        for (int i = 0; i < 8; ++i)
            text += "jar " + name + " lahAn " + limit + " tar\n   " + name + " = 1\nsaMpav jar\n";
        return text + "dAkhav " + name;
    };
    task("1.out", "1\n");
    handIn("a", program("kiti", "5"));
    handIn("b", program("saMkhyA", "5") + "\n\nsuchanA navIn");
    handIn("c", program("kiti", "6"));
    for (const char* const name : {"d", "e", "f", "g"}) handIn(name, "dAkhav 1");
    EXPECT_EQ(check(),
              "name,points,max,1,alike\na,1,1,right,1\nb,1,1,right,1\nc,1,1,right,\nd,1,1,right,\n"
              "e,1,1,right,\nf,1,1,right,\ng,1,1,right,\n");
}

TEST_F(Class, IsKnownTheSecondTime) {
    task("1.out", "1\n");
    handIn("a", "dAkhav 1");
    EXPECT_EQ(check({}), "name,points,max,1,alike\na,1,1,right,\n");
    std::filesystem::path entry;
    for (const auto& file : std::filesystem::directory_iterator(tvp.folder() / "tolbasic/check")) entry = file.path();
    const std::string kept = contentOf(entry);
    ASSERT_FALSE(kept.empty());
    std::ofstream(entry, std::ios::binary) << kept.substr(0, kept.size() / 2);
    EXPECT_EQ(check({}), "name,points,max,1,alike\na,1,1,right,\n") << "a damaged entry";
    EXPECT_EQ(contentOf(entry).size(), kept.size());
    handIn("a", "dAkhav 2");
    EXPECT_EQ(check({}), "name,points,max,1,alike\na,0,1,wrong,\n");
    task("1.out", "2\n");
    EXPECT_EQ(check({}), "name,points,max,1,alike\na,1,1,right,\n");
}

TEST_F(Class, IsStoppedWithAReportOfWhatThereIs) {
    task("1.out", "1\n");
    task("task.ini", "seconds = 60\n");
    handIn("a", "dAkhav 1");
    handIn("b", "jovar 1 = 1 tovar\nkar");
    const std::filesystem::path known = tvp.folder() / "tolbasic/check";
    tvp.interruptWhen([&] { return exists(known) && !is_empty(known); }, SIGINT);
    EXPECT_EQ(check({}), "name,points,max,1,alike\na,1,1,right,\n");
    EXPECT_EQ(result.status, 130);
}

TEST_F(Class, NeedsATaskThatCanBeRead) {
    handIn("a", "dAkhav 1");
    const auto problem = [&] {
        check({"--english"});
        EXPECT_EQ(result.status, 2);
        return result.errors;
    };
    EXPECT_THAT(problem(), HasSubstr("no cases"));
    task("1.in", "1\n");
    EXPECT_THAT(problem(), HasSubstr("1.in needs 1.out"));
    task("solution.tvp", "caption\ndAkhav 1 / 0\n");
    EXPECT_THAT(problem(), HasSubstr("case 1: error 11 line 1"));
    task("solution.tvp", "caption\ndAkhav 1\n");
    task("task.ini", "seconds = 1\n\nsecond = 2\n");
    EXPECT_THAT(problem(), HasSubstr("line 3: there is no key 'second'"));
    task("task.ini", "spaces = some\n");
    EXPECT_THAT(problem(), HasSubstr("exact, runs, ignore"));
    task("task.ini", "[2]\npoints = 3\n");
    EXPECT_THAT(problem(), HasSubstr("no case [2]"));
    task("task.ini", "points = 2\n[1]\npoints = 0.5\n");
    EXPECT_EQ(check(), "name,points,max,1,alike\na,0.5,0.5,right,\n");
}

TEST_F(Class, IsExplainedInEnglish) {
    task("1.out", "1\n");
    handIn("a", "B = 0\ndAkhav 1 bhAgile B\nsaMpav jar");
    handIn("b", "B = 0\ndAkhav 1 bhAgile B");
    check({"--no-cache", "--english", "--html", "out.html"});
    const std::string page = tvp.folder().read("out.html");
    for (const char* const part : {"<html lang='en'>", "An end or an else has no beginning.",
                                   "The value of ब is ०. The divisor is zero.", "Wrong: "})
        EXPECT_THAT(page, HasSubstr(part));
    for (const char* const marathi : {"जोडी", "भाजक", "चूक", "गडबड"}) EXPECT_THAT(page, Not(HasSubstr(marathi)));
}

TEST_F(Class, CanTryATaskFile) {
    task("2.in", "2\n");
    task("10.in", "10\n");
    task("task.ini", "title = dona\n[10]\nopen = no\n");
    task("data.txt", "2\n");
    task("solution.tvp", "caption\nsuchanA secret\nghe A\ndAkhav A * 2\n(10, 10) pAsun (50, 50) paryaMt regh Akh\n");
    handIn("a", "ghe A\ndAkhav A * 2\n(10, 10) pAsun (50, 50) paryaMt regh Akh");
    handIn("b", "ghe A\ndAkhav A * 2");
    EXPECT_EQ(tvp.run({"task", "task"}).output, "task.task\n");
    EXPECT_THAT(tvp.folder().read("task.task"), Not(HasSubstr("secret")));
    EXPECT_EQ(check(), "name,points,max,2,10,alike\na,2,2,right,right,\nb,0,2,wrong,wrong,\n");
    EXPECT_EQ(check({"--no-cache", "--task=task.task"}), "name,points,max,2,alike\na,1,1,right,\nb,0,1,wrong,\n");
}

}  // namespace
}  // namespace tolvan
