// Programs run from the editor, to their end, to a stop and to an error.
#include "EditorFixture.h"
#include "platform/encoding/Deva.h"
#include "platform/fonts/FontEncoding.h"
#include "platform/picturebox/PictureBox.h"
#include "runtime/frmExec.h"

#include <QApplication>
#include <QScrollBar>
#include <QTimer>

#include <csignal>
#include <sys/resource.h>

namespace tolvan {
namespace {

using testing::IsEmpty;

const char endless[] = "dAkhav 1\njovar 1 lahAn 2 tovar\na = 1\nkar\n";

class RunTest : public EditorTest {
  protected:
    RunTest() {
        QObject::connect(&watchdog_, &QTimer::timeout, [this] {
            if (editor->isRunning()) ADD_FAILURE() << "the program was not stopped";
            state.run.stop();
        });
    }
    frmExec* console() const {
        for (QWidget* window : QApplication::topLevelWidgets())
            if (auto* found = qobject_cast<frmExec*>(window)) return found;
        return nullptr;
    }
    // Done while the program runs, once it has printed something.
    void whileItRuns(std::function<void()> action) {
        acted_ = false;
        watchdog_.start(10000);
        oncePrinted(std::move(action));
    }
    bool acted() const { return acted_; }
    void setProgram(const QByteArray& lines) {
        writeFile("run.tvp", "\n" + lines);
        ASSERT_TRUE(editor->OpenFile(path("run.tvp")));
    }
    static std::string selected(const TextPane& pane, const std::string& text) {
        return text.substr(pane.selectionStart(), pane.selectionLength());
    }

  private:
    void oncePrinted(std::function<void()> action) {
        QTimer::singleShot(10, editor.get(), [this, action = std::move(action)] {
            if (!state.run.IsRunning() || console()->findChild<PictureBox*>(QStringLiteral("Display"))->CurrentY == 0)
                return oncePrinted(action);
            acted_ = editor->isRunning();
            action();
        });
    }

    bool acted_ = false;
    QTimer watchdog_;  // a program that nothing stops must not hang the test
};

TEST_F(RunTest, AProgramRunsToItsEndAndTheEditorComesBack) {
    setProgram("dAkhav 1\n");
    press(Qt::Key_F5);
    ASSERT_NE(console(), nullptr);
    EXPECT_TRUE(console()->isVisible());
    EXPECT_FALSE(editor->isRunning());
    EXPECT_FALSE(editor->txtRoman().isLocked());
    EXPECT_TRUE(editor->commandBars().isEnabled("RunStart"));
    EXPECT_FALSE(editor->commandBars().isEnabled("RunEnd"));
    EXPECT_EQ(editor->txtProgram().selectionLength(), 0U);
    EXPECT_EQ(panel("panel2"), toQString("tolvn beisk tyar Aahe"_deva));
    QTest::keyClick(console()->windowHandle(), Qt::Key_Space);
    EXPECT_FALSE(console()->isVisible());
}

TEST_F(RunTest, TheEditorIsLockedButScrollsWhileAProgramRuns) {
    setProgram(QByteArray(endless) + QByteArray("a = 1\n").repeated(100));
    const std::string before = roman();
    whileItRuns([this] {
        EXPECT_TRUE(editor->txtRoman().isLocked());
        for (const char* key : {"FileNew", "FileOpen", "EditCut", "EditPaste", "EditUndo", "EditReplace", "EditFormat",
                                "RunStart", "FileMakeEXE"})
            EXPECT_FALSE(editor->commandBars().isEnabled(key)) << key;
        EXPECT_TRUE(editor->commandBars().isEnabled("RunEnd"));
        type("x");
        editor->RunStart();  // by a caller that does not ask: nothing
        editor->txtRoman().verticalScrollBar()->setValue(50);
        EXPECT_EQ(editor->txtRoman().verticalScrollBar()->value(), 50);
        editor->RunEnd();
        EXPECT_TRUE(editor->commandBars().isEnabled("RunStart"));
        EXPECT_FALSE(editor->commandBars().isEnabled("RunEnd"));
    });
    press(Qt::Key_F5);
    EXPECT_TRUE(acted());
    EXPECT_EQ(roman(), before);
    EXPECT_FALSE(editor->txtRoman().isLocked());
}

// The line that runs is selected in both panes, and seen, whatever stopped it.
TEST_F(RunTest, AStopSelectsTheLineInBothPanes) {
    const std::function<void()> stops[] = {
        [this] {
            toFront();
            press(Qt::Key_F4);
        },
        [this] {
            toFront();
            press(Qt::Key_F5, Qt::ShiftModifier);
        },
        [this] { QTest::keyClick(console()->windowHandle(), Qt::Key_F4); },
        [this] { console()->close(); },
    };
    setProgram(QByteArray("b = 1\n").repeated(200) + "dAkhav 1\njovar 1 lahAn 2 tovar\nkar\n");
    for (const auto& stop : stops) {
        editor->txtRoman().select(0, 0);
        whileItRuns(stop);
        press(Qt::Key_F5);
        EXPECT_TRUE(acted());
        EXPECT_FALSE(console()->isVisible());
        EXPECT_TRUE(editor->isActiveWindow());
        EXPECT_THAT(selected(editor->txtRoman(), roman()),
                    testing::AnyOf("jovar 1 lahAn 2 tovar\r", "jovar 1 lahAn 2 tovar", "kar\r", "kar"));
        EXPECT_GE(editor->txtProgram().currentLine(), 201);
        EXPECT_GT(editor->txtProgram().selectionLength(), 0U);
        EXPECT_TRUE(editor->txtRoman().rect().contains(editor->txtRoman().cursorRect().center()));
        EXPECT_TRUE(editor->txtProgram().rect().contains(editor->txtProgram().cursorRect().center()));
    }
}

TEST_F(RunTest, AnErrorSelectsItsLineIfTheUserStopsThere) {
    setProgram("a = 1\nb = 1 / 0\nc = 1\n");
    user.errorAnswers = {false};
    press(Qt::Key_F5);
    EXPECT_THAT(user.errorAnswers, IsEmpty());
    EXPECT_FALSE(console()->isVisible());
    EXPECT_GT(editor->txtRoman().selectionLength(), 0U);
}

TEST_F(RunTest, ClosingTheEditorStopsTheProgramFirst) {
    setProgram(endless);
    whileItRuns([this] {
        EXPECT_FALSE(editor->close());
        EXPECT_TRUE(editor->isVisible());
    });
    press(Qt::Key_F5);
    EXPECT_TRUE(acted());
    EXPECT_FALSE(editor->isVisible());
    EXPECT_FALSE(console()->isVisible());
}

TEST_F(RunTest, SavesAndFormatsBeforeARunIfThePreferencesSaySo) {
    state.SaveBeforeExecute = true;
    state.FormatBeforeExecute = true;
    type("jovar 1 lahAn 1 tovar");
    press(Qt::Key_Return);
    type("a = 1");
    press(Qt::Key_Return);
    type("kar");
    user.files = {QString(), path("new.tvp")};  // cancelled: it runs all the same
    press(Qt::Key_F5);
    EXPECT_EQ(roman(), "jovar 1 lahAn 1 tovar\r\n      a = 1\r\nkar");
    EXPECT_EQ(title(), QStringLiteral("Default.tvp*"));
    toFront();
    press(Qt::Key_F5);
    EXPECT_EQ(contentOf(path("new.tvp")), QByteArray("\r\njovar 1 lahAn 1 tovar\r\n      a = 1\r\nkar\r\n"));
    toFront();
    QFile::remove(path("new.tvp"));  // a file that is gone is asked for again
    user.files = {path("again.tvp")};
    press(Qt::Key_F5);
    EXPECT_TRUE(QFile::exists(path("again.tvp")));
}

// As long as it lives, no file can be written.
class FullDisk {
  public:
    FullDisk() {
        std::signal(SIGXFSZ, SIG_IGN);
        ::getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit none{0, before_.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &none);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;
    ~FullDisk() { ::setrlimit(RLIMIT_FSIZE, &before_); }

  private:
    rlimit before_{};
};

// An example of the system cannot be saved, nor need it be as long as it is unchanged.
TEST_F(RunTest, WhatCannotBeSavedIsToldOnlyWhenItIsChanged) {
    state.SaveBeforeExecute = true;
    const QByteArray content = "caption\r\na = 1\r\n";
    const QString example = writeFile("example.tvp", content);
    editor->OpenFile(example);
    const FullDisk fullDisk;
    press(Qt::Key_F5);
    EXPECT_TRUE(console()->isVisible());
    EXPECT_THAT(user.takeTold(), testing::IsEmpty());
    toFront();
    type("b");
    press(Qt::Key_F5);
    EXPECT_THAT(user.takeTold(), testing::SizeIs(1));
    EXPECT_EQ(contentOf(example), content);
}

TEST_F(RunTest, TheOutputIsShownUnderTheCaption) {
    state.run.ProgramCaption = "nav";
    editor->ViewOutput();
    EXPECT_TRUE(console()->isVisible());
    EXPECT_THAT(console()->windowTitle().toStdString(), testing::StartsWith("navTolbasic Output..."));
}

}  // namespace
}  // namespace tolvan
