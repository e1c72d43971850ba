// Programs run from the editor, to their end, to a stop and to an error.
#include "EditorFixture.h"
#include "editor/guide/ProblemPanel.h"
#include "platform/encoding/Deva.h"
#include "platform/fonts/FontEncoding.h"
#include "platform/picturebox/PictureBox.h"
#include "runtime/frmExec.h"
#include "translator/ProgramText.h"

#include <QApplication>
#include <QClipboard>
#include <QListWidget>
#include <QScrollBar>
#include <QTimer>

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
        toFront();
        EXPECT_EQ(panel("panel2"), toQString("tolvn beisk tyar Aahe"_deva));
        type("x");
        EXPECT_EQ(panel("panel2"), toQString("àayaejn suê Astana bdl krta yet nahI"_deva));
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

// Lines are counted with the blank ones.
TEST_F(RunTest, TheLineThatFailedIsNamedAndSelectedWhateverTheAnswer) {
    const struct {
        const char* what;
        const char* program;
        int line;
    } cases[] = {
        {"the first", "a = 1 / 0\nb = 1\n", 1},
        {"an even one", "a = 1\nb = 1 / 0\nc = 1\n", 2},
        {"after blank ones", "\n\na = 1\n\n  \nb = 1 / 0\nc = 1\n", 6},
        {"in a function", "dAkhav q(1)\n\nupaprAyojan q(a)\nb = 1\n\nq = a / 0\nupaprAyojan saMpav\n", 6},
        {"the last, without an end", "a = 1\n\na = 1 / 0", 3},
        {"that cannot be read", "a = 1\n\nb = (1\nc = 1\n", 3},
        {"before the end that is missing", "jar 1 lahAn 2 tar\n\na = 1\n\n\n", 3},
    };
    for (const auto& [what, program, line] : cases)
        for (const bool goesOn : {true, false}) {
            setProgram(program);
            user.errorAnswers = {goesOn};
            user.errors.clear();
            toFront();
            press(Qt::Key_F5);
            ASSERT_EQ(user.errors.size(), 1U) << what;
            EXPECT_EQ(user.errors[0].second, line) << what;
            EXPECT_EQ(console()->isVisible(), goesOn) << what;
            EXPECT_EQ(editor->txtRoman().currentLine(), line) << what;
            EXPECT_EQ(editor->txtProgram().currentLine(), line) << what;
            EXPECT_EQ(selected(editor->txtRoman(), roman()),
                      editor->txtRoman().line(static_cast<std::size_t>(line - 1)))
                << what;
        }
}

// In both panes, whatever the order of the script is; where nothing is known of it, the whole line.
TEST_F(RunTest, WhatFailedIsMarkedInItsLine) {
    const struct {
        const char* program;
        const char* part;
    } cases[] = {
        {"  a = 7 adhik (1 bhAgile 0) \n", "1 bhAgile 0"},
        {"mitI ghar(5)\na = 1 adhik  ghar(6)\n", "ghar(6)"},
        {"mitI ghar(5)\nghar(4 adhik 2) = 3\n", "ghar(4 adhik 2)"},
        {"vay = #\"#bArA#\"#\ndAkhav #\"#k#\"# & vay guNile 2\n", "vay guNile 2"},
        {"jar #\"#x#\"# tar\nkorA\nsaMpav jar\n", "#\"#x#\"#"},
        {"k sAThI 1 te #\"#x#\"# paryaMt\npuDhachA k\n", "k sAThI 1 te #\"#x#\"#"},
        {"k sAThI 1 te 5 bhAgile 0 paryaMt\npuDhachA k\n", "5 bhAgile 0"},
        {"k sAThI 1 te 9000 paryaMt\na = k adhik 10 bhAgile (9000 vajA k)\npuDhachA k\n", "10 bhAgile (9000 vajA k)"},
        {"(1, 2) pAsun (3, 4 bhAgile 0) paryaMt regh Akh\n", "4 bhAgile 0"},
        {"dAkhav vargamUL(0 vajA 4)\n", "vargamUL(0 vajA 4)"},
        {"dAkhav duppaT(4)\n", "duppaT(4)"},
        {"dAkhav q(1)\nupaprAyojan q(a)\nq = a bhAgile 0\nupaprAyojan saMpav\n", "a bhAgile 0"},
        {"a = 1 2\n", "2"},
        {" vAch a \n", "vAch a"},
    };
    for (const auto& [program, part] : cases) {
        setProgram(program);
        user.errorAnswers = {false};
        toFront();
        press(Qt::Key_F5);
        const auto marked = [&](TextPane& pane) {
            const auto places = pane.extraSelections();
            return places.isEmpty() ? QString() : places.back().cursor.selectedText();
        };
        EXPECT_EQ(marked(editor->txtRoman()).toStdString(), part) << program;
        EXPECT_EQ(marked(editor->txtProgram()), toQString(Transliterate(part).text())) << program;
        const int start = editor->txtRoman().extraSelections().back().cursor.selectionStart();
        editor->txtRoman().select(0, 0);
        press(Qt::Key_F8);
        EXPECT_EQ(editor->txtRoman().textCursor().position(), start) << program;
        type("x");
        EXPECT_NE(editor->problems().kind(), "failed-run") << program;
    }
}

// Whatever the answer: line, message, sentence; who had which value; what it means, wrong and right. Until a change or
// the next run.
TEST_F(RunTest, TheFailureIsExplainedInTheListOfProblems) {
    auto* const list = editor->findChild<QListWidget*>(QStringLiteral("lstProblems"));
    for (const bool goesOn : {true, false}) {
        setProgram("vay = #\"#bArA#\"#\n\n  dAkhav vay guNile 2\n");
        user.errorAnswers = {goesOn};
        toFront();
        press(Qt::Key_F5);
        ASSERT_EQ(list->count(), 4);
        EXPECT_TRUE(list->isVisible());
        EXPECT_THAT(list->item(0)->text().toStdString(),
                    testing::AllOf(testing::StartsWith("ओळ ३: "), testing::EndsWith(": दाखव वय गुणिले २")));
        EXPECT_EQ(list->item(1)->text(), QStringLiteral("वय या नावात \"बारा\" हा मजकूर आहे, संख्या नाही."));
        EXPECT_EQ(list->item(3)->text(), QStringLiteral("चुकीचे: दाखव \"बारा\" गुणिले २; बरोबर: दाखव १२ गुणिले २"));
        toFront();
        editor->txtRoman().select(0, 0);
        press(Qt::Key_F8);
        EXPECT_EQ(editor->txtRoman().currentLine(), 3);
        type("x");
        EXPECT_EQ(list->count(), 0);
        press(Qt::Key_Backspace);
    }
    user.errorAnswers = {false};
    press(Qt::Key_F5);
    EXPECT_EQ(list->count(), 4);
    setProgram(endless);
    whileItRuns([this] { editor->RunEnd(); });
    press(Qt::Key_F5);
    EXPECT_EQ(list->count(), 0) << "a stop is no failure";
}

TEST_F(RunTest, WhatIsTypedNeverReplacesTheMarkedLine) {
    const struct {
        Qt::Key key;
        const char* second;  // line of the text afterwards
    } cases[] = {{Qt::Key_X, "b = 1 / 0x"},
                 {Qt::Key_Return, "b = 1 / 0"},
                 {Qt::Key_Backspace, "b = 1 / 0"},
                 {Qt::Key_Delete, "b = 1 / 0"},
                 {Qt::Key_V, "b = 1 / 0pasted"}};
    QApplication::clipboard()->setText(QStringLiteral("pasted"));
    for (const auto& [key, second] : cases) {
        setProgram("a = 1\nb = 1 / 0\nc = 1\n");
        user.errorAnswers = {false};
        toFront();
        press(Qt::Key_F5);
        toFront();
        press(key, key == Qt::Key_V ? Qt::ControlModifier : Qt::NoModifier);
        EXPECT_EQ(editor->txtRoman().line(1), second);
        EXPECT_EQ(editor->txtRoman().lineCount(), key == Qt::Key_Return ? 5 : 4);
        EXPECT_EQ(editor->txtRoman().selectionLength(), 0U);
        editor->txtRoman().select(0, 5);  // the user's own selection is replaced
        press(Qt::Key_Y);
        EXPECT_EQ(editor->txtRoman().line(0), "y");
    }
}

// As after "-run": the panes have no size before the window is shown.
TEST_F(RunTest, AMarkBeforeTheWindowIsShownLeavesTheTextInSight) {
    setProgram("a = 1\n" + QByteArray("dAkhav 12345 + ").repeated(6) + "1 / 0\n");
    user.errorAnswers = {false};
    editor->hide();
    editor->resize(1, 1);
    editor->CompileAndExecute(editor->txtProgram().text());
    EXPECT_TRUE(editor->isVisible());
    for (const TextPane* pane :
         {static_cast<TextPane*>(&editor->txtRoman()), static_cast<TextPane*>(&editor->txtProgram())})
        EXPECT_EQ(pane->horizontalScrollBar()->value(), 0);
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
    const std::string typed = roman();
    user.files = {QString(), path("new.tvp")};
    press(Qt::Key_F5);
    EXPECT_EQ(console(), nullptr) << "cancelled";
    EXPECT_EQ(roman(), typed);
    EXPECT_EQ(title(), QStringLiteral("Default.tvp*"));
    press(Qt::Key_F5);
    EXPECT_EQ(roman(), "jovar 1 lahAn 1 tovar\r\n      a = 1\r\nkar");
    EXPECT_EQ(contentOf(path("new.tvp")), QByteArray("\r\njovar 1 lahAn 1 tovar\r\na = 1\r\nkar\r\n"));
    toFront();
    press(Qt::Key_F5);
    EXPECT_EQ(contentOf(path("new.tvp")), QByteArray("\r\njovar 1 lahAn 1 tovar\r\n      a = 1\r\nkar\r\n"));
    toFront();
    QFile::remove(path("new.tvp"));  // a file that is gone is asked for again
    user.files = {path("again.tvp")};
    press(Qt::Key_F5);
    EXPECT_TRUE(QFile::exists(path("again.tvp")));
    toFront();
    writeFile("again.tvp", "\nof another");
    user.answers = {0};
    press(Qt::Key_F5);
    EXPECT_EQ(contentOf(path("again.tvp")), QByteArray("\nof another"));
}

TEST_F(RunTest, TheOutputIsShownUnderTheCaption) {
    state.run.ProgramCaption = "nav";
    editor->ViewOutput();
    EXPECT_TRUE(console()->isVisible());
    EXPECT_THAT(console()->windowTitle().toStdString(), testing::StartsWith("navTolbasic Output..."));
    EXPECT_TRUE(editor->close());
    EXPECT_FALSE(console()->isVisible());
}

}  // namespace
}  // namespace tolvan
