// Data files of a program in a window: which folder is its own, and the question about others.
#include "ConsoleFixture.h"
#include "host/TemporaryFolder.h"
#include "runtime/DataFiles.h"
#include "support/ScriptedUser.h"

#include <unistd.h>

namespace tolvan {
namespace {

std::string opening(const std::string& name, int mode) {
    return "parentform.FileOpen \"{" + name + "}\", " + std::to_string(mode);
}

TEST_F(ConsoleTest, AsksBeforeAProgramReachesAFileElsewhere) {
    const TemporaryFolder folder;
    folder.write(".profile", "kept");
    std::filesystem::create_directory(folder / "own");
    ScriptedUser user;
    const ReplacedDialogs dialogs(user);
    console->setFiles(dataFilesOf(QString::fromStdString(folder / "own/prog.tvp")));
    user.answers = {0};
    user.errorAnswers = {true, true};  // goes on, and stays without a file
    run({opening("../.profile", 3), "parentform.FileWrite \"touch hurt\""});
    EXPECT_EQ(user.takeTold(), std::vector<std::string>{fileQuestion(folder / ".profile", true)});
    ASSERT_EQ(user.errors.size(), 2U);
    EXPECT_EQ(user.errors[0].first, 70);
    EXPECT_EQ(user.errors[1].first, 52);
    EXPECT_EQ(folder.read(".profile"), "kept");

    user.answers = {1};
    run({opening("../.profile", 3), "parentform.FileWrite \"more\"", "parentform.FileClose", opening("new", 2)});
    EXPECT_EQ(folder.read(".profile"), "keptmore\r\n");
    EXPECT_TRUE(std::filesystem::exists(folder / "own/new"));
    EXPECT_EQ(user.takeTold().size(), 1U);
}

// Escape and Enter keep the file from the program.
TEST_F(ConsoleTest, TheQuestionAboutAFilePrefersNo) {
    for (const Qt::Key key : {Qt::Key_Enter, Qt::Key_Escape}) {
        onceDialogIsUp([key](QDialog& box) { QTest::keyClick(&box, key); });
        EXPECT_FALSE(console->MayReachFile("/etc/passwd", false));
    }
    onceDialogIsUp([](QDialog& box) { click(box, "cmdYes"); });
    ASSERT_TRUE(state.begin());
    EXPECT_TRUE(console->MayReachFile("/etc/passwd", false));
    state.end();
}

TEST(DataFiles, AProgramWithoutAFolderToWriteHasTheDocumentsFolder) {
    const TemporaryFolder home;
    ::setenv("HOME", home.path().c_str(), 1);
    for (const char* file : {"", "/no/such/program.tvp"}) {
        ReachableFiles files = dataFilesOf(QLatin1String(file));
        Descriptor opened;
        EXPECT_EQ(files.open("marks.txt", DataFileMode::Write, opened), FileError::None) << file;
        EXPECT_TRUE(std::filesystem::remove(home / "Documents/marks.txt")) << file;
    }
}

}  // namespace
}  // namespace tolvan
