// The opening picture and the font check; the real program, started with command lines, with a user at its windows.
#include "shell/CommandLine.h"
#include "shell/PlainMessage.h"
#include "shell/frmSplash.h"
#include "shell/user/DrivenProcess.h"
#include "support/Folders.h"

#include <QTest>
#include <QTimer>

#include <gmock/gmock.h>
#include <random>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace tolvan {
namespace {

// A clock that goes on by a tenth of a second each time it is read.
std::function<Seconds()> clockFrom(Seconds now) {
    return [now]() mutable { return now += 0.1F; };
}

TEST(Splash, StaysForTwoSeconds) {
    frmSplash splash;
    splash.show();
    int reads = 0;
    auto clock = clockFrom(100);
    waitForSplash(splash, 100, [&] {
        ++reads;
        return clock();
    });
    EXPECT_TRUE(splash.isVisible());
    EXPECT_NEAR(reads, 20, 1);
}

TEST(Splash, AKeyOrAClickClosesItEvenWhenMidnightHasPassed) {
    for (const bool byKey : {true, false}) {
        frmSplash splash;
        splash.show();
        QTimer::singleShot(100, [&] {
            byKey ? QTest::keyClick(QGuiApplication::focusWindow(), Qt::Key_A)
                  : QTest::mouseClick(&splash, Qt::LeftButton);
        });
        waitForSplash(splash, 86399.5F, [] { return 10.0F; });
        EXPECT_FALSE(splash.isVisible());
    }
}

TEST(Fonts, BothAreRequiredOnceEach) {
    const QString latin = QStringLiteral("Times New Roman");
    const QString devanagari = QStringLiteral("Sanskrit 1.2");
    const QString other = QStringLiteral("times new roman");
    EXPECT_TRUE(hasRequiredFonts({other, latin, devanagari}));
    EXPECT_FALSE(hasRequiredFonts({}));
    EXPECT_FALSE(hasRequiredFonts({latin, other}));
    EXPECT_FALSE(hasRequiredFonts({devanagari, other}));
    EXPECT_FALSE(hasRequiredFonts({latin, devanagari, latin}));
}

namespace fs = std::filesystem;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsSupersetOf;
using testing::StartsWith;
using testing::UnorderedElementsAre;

const std::string splash = "frmSplash|";
const std::string editorWindow = "frmEditor|";
const std::string console = "frmExec|";

class StartTest : public testing::Test {
  protected:
    StartTest() {
        process_.folder().write("Prog.tvp", "nAv\r\ndAkhav 1 + 1\r\n");
        process_.folder().write("other.tvp", "dusare\r\ndAkhav 2\r\n");
    }

    // The user closes the splash window by a key.
    DrivenResult start(const std::vector<std::string>& arguments, std::vector<std::string> deeds) {
        deeds.insert(deeds.begin(), "frmSplash leave");
        return process_.run(programFolder() + "/tolbasic", arguments, deeds);
    }

    bool exists(const char* name) const { return fs::exists(process_.folder() / name); }
    void setInstallationFolder(const std::string& folder) {
        fs::create_directories(process_.folder() / "home/config/Tolbasic");
        process_.folder().write("home/config/Tolbasic/Tolbasic.conf", "[Installation]\nDirectory=" + folder + "\n");
    }

    DrivenProcess process_;
};

// The start of what each window shows, after the opening picture.
TEST_F(StartTest, DoesWhatTheCommandLineSays) {
    const struct {
        std::vector<std::string> arguments;
        std::vector<std::string> deeds;
        std::vector<std::string> windows;
    } cases[] = {
        {{}, {"frmEditor close"}, {"frmEditor|Default.tvp"}},
        {{"PROG.tvp", "-x"}, {"frmEditor close"}, {"frmEditor|Prog.tvp"}},
        {{"prog.tvp", "-RUN", "-compile"}, {"frmExec leave", "frmEditor close"}, {"frmExec|", "frmEditor|Prog.tvp"}},
        {{"-?", "Prog.tvp", "-run"}, {"QMessageBox click OK"}, {"QMessageBox|Tolbasic Command-Line Options:\\n"}},
        {{"none.tvp", "-run"},
         {"QMessageBox click OK", "frmEditor close"},
         {"QMessageBox|File cannot be located. Sorry.", "frmEditor|Default.tvp"}},
        {{"Prog.tvp", "other.tvp"},
         {"QMessageBox click OK", "frmEditor close"},
         {"QMessageBox|Ambigious command-line arguments. Unable to understand.", "frmEditor|Prog.tvp"}},
        {{},
         {"frmEditor command FileMakeEXE", "frmMQuestionBox click cmdNo", "frmEditor close"},
         {"frmEditor|", "frmMQuestionBox|saQvlelI nstan Svt<Ç"}},
    };
    for (const auto& [arguments, deeds, windows] : cases) {
        const DrivenResult result = start(arguments, deeds);
        EXPECT_EQ(result.status, 0) << result.errors;
        std::vector<testing::Matcher<std::string>> expected{StartsWith(splash)};
        for (const std::string& window : windows) {
            const std::size_t bar = window.find('|') + 1;
            expected.push_back(AllOf(StartsWith(window.substr(0, bar)), HasSubstr(window.substr(bar))));
        }
        EXPECT_THAT(result.windows, testing::ElementsAreArray(expected)) << testing::PrintToString(arguments);
    }
    EXPECT_FALSE(exists("Prog.exe"));
}

TEST_F(StartTest, SplashGoesByItself) {
    const DrivenResult result = process_.run(programFolder() + "/tolbasic", {}, {"frmEditor close"});
    EXPECT_EQ(result.status, 0) << result.errors;
    EXPECT_THAT(result.windows, ElementsAre(StartsWith(splash), StartsWith(editorWindow)));
}

TEST_F(StartTest, ASessionBusThatNeverAnswersHoldsNothingUp) {
    const std::string path = process_.folder() / "bus";
    const int bus = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_un address = {AF_UNIX, {}};
    ASSERT_LT(path.copy(address.sun_path, sizeof address.sun_path), sizeof address.sun_path);
    ASSERT_EQ(::bind(bus, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    ASSERT_EQ(::listen(bus, 5), 0);
    process_.setEnvironment("DBUS_SESSION_BUS_ADDRESS", "unix:path=" + path);
    EXPECT_EQ(start({}, {"frmEditor close"}).status, 0);
    ::close(bus);
}

TEST_F(StartTest, KeepsTheTextWhenTheSystemEndsIt) {
    EXPECT_EQ(start({}, {"frmEditor logout dAkhav"}).status, 0);
    EXPECT_THAT(process_.folder().read("home/config/Tolbasic/unsaved-1.tvp"), HasSubstr("dAkhav"));
    const DrivenResult next = start({}, {"frmMQuestionBox click cmdYes", "frmEditor logout x"});
    EXPECT_EQ(next.status, 0) << next.errors;
    EXPECT_THAT(next.windows.back(), HasSubstr("Default.tvp"));
}

TEST_F(StartTest, EndsWithARunningProgramWhenTheSystemEndsIt) {
    process_.folder().write("endless.tvp", "nAv\r\njovar 1 = 1 tovar\r\nkar\r\n");
    EXPECT_EQ(start({"endless.tvp", "-run"}, {"frmExec logout"}).status, 0);
}

TEST_F(StartTest, SettingsThatAreAPipeDelayNothing) {
    fs::create_directories(process_.folder() / "home/config/Tolbasic");
    ASSERT_EQ(::mkfifo((process_.folder() / "home/config/Tolbasic/Tolbasic.conf").c_str(), 0600), 0);
    EXPECT_EQ(start({}, {"frmEditor close"}).status, 0);
}

// On this platform of Qt no font can be loaded.
TEST_F(StartTest, WithoutItsFontsItOnlySaysSo) {
    process_.setEnvironment("QT_QPA_PLATFORM", "minimal");
    const DrivenResult result =
        process_.run(programFolder() + "/tolbasic", {"prog.tvp", "-compile"}, {"QMessageBox click OK"});
    EXPECT_EQ(result.status, 1) << result.errors;
    EXPECT_THAT(result.windows,
                UnorderedElementsAre(StartsWith(splash),
                                     "QMessageBox|Font Required|Critical|The fonts 'Sanskrit 1.2' and 'Times New "
                                     "Roman' are required for this software to run and could not be found on this "
                                     "computer. Unable to start Tolbasic."));
    EXPECT_FALSE(exists("Prog.exe"));
}

TEST_F(StartTest, RefusesToWriteAnExecutableOverItself) {
    process_.folder().write("prog.exe", "nAv\r\ndAkhav 1\r\n");
    const DrivenResult result = start({"prog.exe", "-compile"}, {"QMessageBox click OK"});
    EXPECT_EQ(result.status, 0) << result.errors;
    EXPECT_THAT(result.windows, ElementsAre(StartsWith(splash),
                                            "QMessageBox|Tolbasic|Information|Unable to write file onto itself. Input "
                                            "File and Output File have same names."));
    EXPECT_EQ(process_.folder().read("prog.exe"), "nAv\r\ndAkhav 1\r\n");
}

TEST_F(StartTest, AnExistingExecutableStaysUnlessItsDeletionIsWanted) {
    process_.folder().write("Prog.exe", "old");
    EXPECT_EQ(start({"prog.tvp", "-compile"}, {"frmMQuestionBox click cmdNo"}).status, 0);
    EXPECT_EQ(process_.folder().read("Prog.exe"), "old");
    fs::permissions(process_.folder() / "Prog.exe", fs::perms::owner_read);
    const DrivenResult result = start({"prog.tvp", "-compile"}, {"frmMQuestionBox click cmdYes"});
    ASSERT_EQ(result.windows.size(), 2U);
    EXPECT_THAT(result.windows[1],
                AllOf(HasSubstr((process_.folder() / "Prog.exe") + "  ya navacI )a#l"), HasSubstr("tI oaefaycI ka?")));
    EXPECT_GT(fs::file_size(process_.folder() / "Prog.exe"), fs::file_size(programFolder() + "/engine.dat"));
}

TEST_F(StartTest, WithoutTheRuntimeNothingIsWritten) {
    setInstallationFolder(process_.folder().path());
    const DrivenResult result = start({"prog.tvp", "-compile"}, {"frmMMsgbox click cmdOK"});
    EXPECT_EQ(result.status, 0) << result.errors;
    EXPECT_THAT(result.windows, ElementsAre(StartsWith(splash), HasSubstr("@k mhTvacI )a$l n sapfLyamu¦e")));
    EXPECT_FALSE(exists("Prog.exe"));
}

TEST_F(StartTest, ARuntimeOfAnotherFolderAndCaseIsFound) {
    process_.folder().write("ENGINE.dat", "runtime");
    setInstallationFolder(process_.folder().path());
    EXPECT_EQ(start({"prog.tvp", "-compile"}, {}).status, 0);
    EXPECT_THAT(process_.folder().read("Prog.exe"), StartsWith("runtime"));
}

TEST_F(StartTest, AFailureWhileWritingIsToldWithItsReason) {
    const struct {
        const char* name;
        std::vector<std::string> deeds;
        const char* told;
    } cases[] = {
        // No line end: shorter than its caption and that line's end.
        {"noend.tvp", {"frmMMsgbox click cmdOK"}, "biskla Hepenase Hale"},
        // The executable's name is that of a folder.
        {"folder.tvp", {"frmMQuestionBox click cmdYes", "frmMMsgbox click cmdOK"}, ")a#lzI s<pkR"},
    };
    process_.folder().write("noend.tvp", "caption alone");
    process_.folder().write("folder.tvp", "nAv\r\ndAkhav 1\r\n");
    fs::create_directory(process_.folder() / "folder.exe");
    for (const auto& row : cases) {
        const DrivenResult result = start({row.name, "-compile"}, row.deeds);
        EXPECT_EQ(result.status, 0) << result.errors;
        ASSERT_FALSE(result.windows.empty());
        EXPECT_THAT(result.windows.back(), AllOf(HasSubstr("Svt<Ç krta Aale nahI"), HasSubstr(row.told)));
    }
    EXPECT_EQ(fs::file_size(process_.folder() / "noend.exe"), fs::file_size(programFolder() + "/engine.dat"));
}

TEST_F(StartTest, TheMenuWritesAnExecutableBesideTheEditor) {
    process_.folder().write("Prog.tvp", "n/v?\r\ndAkhav 1\r\n");
    const DrivenResult result = start({"prog.tvp"}, {"frmEditor command FileMakeEXE", "QFileDialog type",
                                                     "frmMMsgbox click cmdOK", "frmEditor close"});
    EXPECT_EQ(result.status, 0) << result.errors;
    EXPECT_THAT(result.windows,
                ElementsAre(StartsWith(splash), AllOf(StartsWith(editorWindow), HasSubstr("Prog.tvp")),
                            StartsWith("QFileDialog|Make EXE as..."), HasSubstr("tyar Hale: n-v-.exe")));
    EXPECT_GT(fs::file_size(process_.folder() / "n-v-.exe"), fs::file_size(programFolder() + "/engine.dat"));
}

TEST_F(StartTest, TheEndingTellsForWhichSystemTheMenuMakesAnExecutable) {
    process_.folder().write("engine.dat", "own");
    process_.folder().write("engine-windows.dat", "other");
    setInstallationFolder(process_.folder().path());
    for (const char* name : {"", "for-others.EXE"})
        start({"prog.tvp"}, {"frmEditor command FileMakeEXE", std::string("QFileDialog type ") + name,
                             "frmMMsgbox click cmdOK", "frmEditor close"});
    EXPECT_THAT(process_.folder().read("nAv.run"), StartsWith("own"));
    EXPECT_THAT(process_.folder().read("for-others.EXE"), StartsWith("other"));
}

TEST_F(StartTest, AFailureWithoutAReasonIsToldAndTheMenuComesBackWithTheProgram) {
    process_.setEnvironment("LD_PRELOAD", TOLVAN_SILENT_DISK);
    process_.setEnvironment("ASAN_OPTIONS", "verify_asan_link_order=0");
    const std::string told = "tolvn beiskla gfbifce kar[ smjle nahI. ";
    const DrivenResult compiled = start({"prog.tvp", "-compile"}, {"frmMMsgbox click cmdOK"});
    EXPECT_EQ(compiled.status, 0) << compiled.errors;
    EXPECT_THAT(compiled.windows, ElementsAre(StartsWith(splash), HasSubstr(told)));
    EXPECT_TRUE(exists("Prog.exe"));  // what was written stays, here nothing

    const DrivenResult chosen = start({"prog.tvp"}, {"frmEditor command FileMakeEXE", "QFileDialog type",
                                                     "frmMMsgbox click cmdOK", "frmEditor close"});
    EXPECT_EQ(chosen.status, 0) << chosen.errors;
    EXPECT_THAT(chosen.windows, ElementsAre(StartsWith(splash), AllOf(StartsWith(editorWindow), HasSubstr("Prog.tvp")),
                                            StartsWith("QFileDialog|"), HasSubstr(told)));
    EXPECT_TRUE(exists("nAv.exe"));
}

TEST_F(StartTest, NoProgramFileBecomesAnExecutable) {
    fs::create_hard_link(process_.folder() / "Prog.tvp", process_.folder() / "Prog.exe");
    process_.folder().write("engine.dat", "runtime");
    process_.folder().write("engine-linux.dat", "runtime");
    setInstallationFolder(process_.folder().path());
    for (const char* name : {"Prog.exe", "OTHER.TVP", "engine.dat", "engine-linux.dat"}) {
        const DrivenResult result =
            start({"prog.tvp"}, {"frmEditor command FileMakeEXE", std::string("QFileDialog type ") + name,
                                 "frmMMsgbox click cmdOK", "frmEditor close"});
        EXPECT_EQ(result.status, 0) << result.errors;
        EXPECT_THAT(result.windows.back(), AllOf(HasSubstr(name), HasSubstr("itCyavr ilihta yet nahI")));
    }
    EXPECT_EQ(process_.folder().read("Prog.exe"), "nAv\r\ndAkhav 1 + 1\r\n");
    EXPECT_EQ(process_.folder().read("engine.dat"), "runtime");
    EXPECT_FALSE(exists("OTHER.TVP"));
}

// The console of the program that has run is there as long as nothing is written.
TEST_F(StartTest, TheConsoleStaysWhenNothingIsWritten) {
    process_.folder().write("nAv.exe", "old");
    const DrivenResult result =
        start({"prog.tvp"}, {"frmEditor command RunStart", "frmEditor command FileMakeEXE", "QFileDialog type",
                             "frmMQuestionBox click cmdNo", "frmExec leave", "frmEditor close"});
    EXPECT_EQ(result.status, 0) << result.errors;
    EXPECT_EQ(process_.folder().read("nAv.exe"), "old");
}

TEST_F(StartTest, AProgramFileThatIsGoneBecomesNothing) {
    const DrivenResult result = start({"prog.tvp"}, {"frmEditor command FileMakeEXE", "QFileDialog remove Prog.tvp",
                                                     "QFileDialog type", "frmEditor close"});
    EXPECT_EQ(result.status, 0) << result.errors;
    EXPECT_THAT(result.windows, ElementsAre(StartsWith(splash), StartsWith(editorWindow), StartsWith("QFileDialog|")));
    EXPECT_FALSE(exists("nAv.exe"));
}

// Whatever is asked for, the program ends in order when its windows are closed.
TEST_F(StartTest, AnyCommandLineEndsInOrder) {
    const std::vector<std::string> pieces = {"prog.tvp", "OTHER.tvp", "-run", "-compile", "-?",
                                             "\"",       "\\",        ".",    "\xE0\x01", "\n",
                                             "-",        "--",        "/",    "",         std::string(5000, 'y')};
    std::mt19937 random(11);
    for (int i = 0; i < 40; ++i) {
        std::vector<std::string> arguments;
        for (auto count = random() % 5; count > 0; --count) {
            arguments.push_back(pieces[random() % pieces.size()]);
            if (random() % 4 == 0) arguments.back() += pieces[random() % pieces.size()];
        }
        const DrivenResult result = process_.run(programFolder() + "/tolbasic", arguments, {"* close"});
        EXPECT_EQ(result.status, 0) << testing::PrintToString(arguments) << result.errors;
        EXPECT_THAT(result.windows, testing::SizeIs(testing::Ge(1U)));
    }
}

TEST_F(StartTest, ThePreferencesAreReadAndKept) {
    const std::vector<std::string> toggle = {"frmEditor command FilePreferences",
                                             "frmPreferences click chkSaveBeforeExecute", "frmPreferences click cmdOK",
                                             "frmEditor close"};
    for (const char* kept : {"SaveBeforeExecute=0", "SaveBeforeExecute=1"}) {
        EXPECT_EQ(start({}, toggle).status, 0);
        EXPECT_THAT(process_.folder().read("home/config/Tolbasic/Tolbasic.conf"), HasSubstr(kept));
    }
}

}  // namespace
}  // namespace tolvan
