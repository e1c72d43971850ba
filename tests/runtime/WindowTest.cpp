// The console as a window, and what it asks about data files.
#include "ConsoleFixture.h"
#include "dialogs/WindowFrame.h"
#include "host/TemporaryFolder.h"
#include "platform/encoding/Deva.h"
#include "platform/settings/Settings.h"
#include "runtime/DataFiles.h"
#include "support/ScriptedUser.h"

#include <QClipboard>
#include <QFile>
#include <QFileDialog>
#include <QTemporaryDir>

#include <gmock/gmock.h>

namespace tolvan {
namespace {

class WindowTest : public ConsoleTest {
  protected:
    ~WindowTest() override { QFile::remove(Settings::userFile()); }

    QAction* item(const char* command) {
        for (QAction* const action : frame().systemMenu().actions())
            if (action->data().toByteArray() == command) return action;
        return nullptr;
    }
    WindowFrame& frame() { return *console->findChild<WindowFrame*>(); }
    std::string title() { return std::string(frame().captionBar().title().text()); }
};

TEST_F(WindowTest, TheDisplayOpensAt800By600AndTheWindowRemembersItsSize) {
    EXPECT_EQ(display().size(), QSize(800, 600));
    console->resize(640, 500);
    console->close();
    open(&editor);
    EXPECT_EQ(console->size(), QSize(640, 500));
    for (const char* damaged : {"", "-5", "7", "wide"}) {
        Settings(Settings::userFile())
            .SaveSetting(QStringLiteral("Settings"), QStringLiteral("ConsoleWidth"), QLatin1String(damaged));
        open(&editor);
        EXPECT_EQ(display().size(), QSize(800, 600)) << damaged;
    }
}

TEST_F(WindowTest, OnlyASizeThatTheUserChoseIsRemembered) {
    const auto remembered = [] {
        return Settings(Settings::userFile()).GetSetting(QStringLiteral("Settings"), QStringLiteral("ConsoleWidth"));
    };
    const QString widest = QStringLiteral("2147483647");
    console->close();
    EXPECT_EQ(remembered(), QString()) << "as it opened";
    Settings(Settings::userFile()).SaveSetting(QStringLiteral("Settings"), QStringLiteral("ConsoleWidth"), widest);
    Settings(Settings::userFile())
        .SaveSetting(QStringLiteral("Settings"), QStringLiteral("ConsoleHeight"), QStringLiteral("600"));
    open(&editor);
    EXPECT_LT(console->width(), 9000);
    EXPECT_GT(console->width(), 400);
    console->close();
    EXPECT_EQ(remembered(), widest) << "of a larger screen";
    open(&editor);
    console->resize(700, 500);
    const QString width = QString::number(display().width());
    for (int i = 0; i < 3; ++i) {
        console->showMaximized();
        QApplication::processEvents();
        console->close();
        EXPECT_EQ(remembered(), width);
        open(&editor);
        EXPECT_EQ(console->width(), 700);
    }
}

TEST_F(WindowTest, TheTitleIsTheProgramsCaption) {
    EXPECT_EQ(title(), "tolvn àayaejn"_deva);
    state.ProgramCaption = "kamal";
    run({});
    EXPECT_EQ(title(), "kml"_deva);
    state.ProgramCaption = "   ";
    open(&editor);
    EXPECT_EQ(title(), "tolvn àayaejn"_deva);
}

TEST_F(WindowTest, TheSystemMenuCallsTheConsolesOwnCommands) {
    console->DrawBox(ConsoleOperations::Point{5, 5}, {100, 100}, 0x0000FF, ConsoleOperations::Fill::Solid);
    emit frame().userCommand("CopyPicture");
    EXPECT_EQ(QApplication::clipboard()->image().convertToFormat(QImage::Format_RGB32), picture());
    bool shown = false;
    onceDialogIsUp([&shown](QDialog& about) {
        shown = true;
        about.close();
    });
    emit frame().userCommand("ShowAbout");
    EXPECT_TRUE(shown);
}

TEST_F(WindowTest, TheStopKeyWorksInTheAboutBox) {
    onceDialogIsUp([](QDialog& about) { QTest::keyClick(&about, Qt::Key_F4); });
    soon([this] { console->ShowAbout(); });
    run({"Do", "Loop"});
    EXPECT_EQ(dialog(), nullptr);
}

// Answers the file dialog with a path.
void chooseFile(QDialog& dialog, const QString& path) {
    auto* const files = qobject_cast<QFileDialog*>(&dialog);
    ASSERT_NE(files, nullptr);
    files->findChild<QLineEdit*>()->setText(path);
    static_cast<QDialog*>(files)->accept();
}

TEST_F(WindowTest, SavesThePictureAsPng) {
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("picture"));
    console->PrintString("kml");
    onceDialogIsUp([&path](QDialog& dialog) { chooseFile(dialog, path); });
    console->SavePicture();
    EXPECT_EQ(QImage(path + QStringLiteral(".png")).convertToFormat(QImage::Format_RGB32), picture());

    onceDialogIsUp([](QDialog& dialog) { dialog.reject(); });
    console->SavePicture();
}

TEST_F(WindowTest, SavesThePictureAsLinesAndText) {
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    const QTemporaryDir folder;
    console->PrintString("gone");
    console->ClearScreen();
    for (int line = 0; line < 40; ++line) console->PrintString("kml{ <5>}");
    console->DrawLine(ConsoleOperations::Point{5, 6}, {100, 7}, 0x0000FF);
    console->DrawCircle({200, 150}, 40, std::nullopt, ConsoleOperations::Fill::Solid);
    onceDialogIsUp([&](QDialog& dialog) { chooseFile(dialog, folder.filePath(QStringLiteral("picture.svg"))); });
    console->SavePicture();
    QFile file(folder.filePath(QStringLiteral("picture.svg")));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const std::string svg = file.readAll().toStdString();
    for (const char* const part :
         {">कमल</text>", "> &lt;5&gt;</text>", "x1=\"5\" y1=\"6\" x2=\"100\" y2=\"7\" stroke=\"#ff0000\"",
          "<circle cx=\"200\" cy=\"150\" r=\"40\" fill=\"#ffffff\"/>"})
        EXPECT_THAT(svg, testing::HasSubstr(part));
    EXPECT_THAT(svg, testing::Not(testing::HasSubstr("gone")));
    // The last line stands where it is seen: on the display.
    const std::size_t last = svg.rfind(" y=\"", svg.rfind("कमल"));
    EXPECT_LT(std::stod(svg.substr(last + 4)), console->DisplayHeight());
}

#ifndef _WIN32  // which has no place that is always full
TEST_F(WindowTest, TellsWhenThePictureCannotBeSaved) {
    ScriptedUser user;
    const ReplacedDialogs replaced(user);
    onceDialogIsUp([](QDialog& dialog) { chooseFile(dialog, QStringLiteral("/dev/full/picture.png")); });
    console->SavePicture();
    EXPECT_EQ(user.told.size(), 1U);
}
#endif

// Data files: which folder is a program's own, and the question about others.

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
    run({opening("../.profile", 3), "parentform.FileWrite \"more\"", "parentform.FileClose", opening("new", 2),
         "parentform.FileClose"});
    EXPECT_EQ(folder.read(".profile"), "keptmore\r\n");
    EXPECT_TRUE(std::filesystem::exists(folder / "own/new"));
    EXPECT_EQ(user.takeTold().size(), 1U);
}

// Escape and Enter keep the file from the program, and a stop key stops it, too.
TEST_F(ConsoleTest, TheQuestionAboutAFilePrefersNo) {
    ASSERT_TRUE(state.begin());
    onceDialogIsUp([](QDialog& box) { click(box, "cmdYes"); });
    EXPECT_TRUE(console->MayReachFile("/etc/passwd", false));
    for (const Qt::Key key : {Qt::Key_Enter, Qt::Key_Escape, Qt::Key_F4}) {
        EXPECT_TRUE(state.IsRunning());
        onceDialogIsUp([key](QDialog& box) { QTest::keyClick(&box, key); });
        EXPECT_FALSE(console->MayReachFile("/etc/passwd", false));
    }
    EXPECT_FALSE(state.IsRunning());
    state.end();
}

#ifndef _WIN32  // where no variable says which folder that is
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
#endif

}  // namespace
}  // namespace tolvan
