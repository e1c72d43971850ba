// Whole sessions of going through programs, by keys and the mouse: where they stand, what is shown, and that nothing
// hangs or is lost, however they end.
#include "EditorFixture.h"
#include "editor/steps/EditorSteps.h"
#include "editor/steps/ValuePanel.h"
#include "editor/steps/frmTrace.h"
#include "platform/picturebox/PictureBox.h"
#include "runtime/frmExec.h"
#include "support/LetterPlaces.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTableView>
#include <QTextBlock>
#include <QTimer>
#include <QToolButton>
#include <QToolTip>
#include <QTreeView>

#include <functional>
#include <sstream>

namespace tolvan {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class StepsTest : public EditorTest {
  protected:
    using Action = std::function<void()>;

    void setProgram(const QByteArray& lines) {
        writeFile("steps.tvp", "\n" + QByteArray(lines).replace("\n", "\r\n"));
        ASSERT_TRUE(editor->OpenFile(path("steps.tvp")));
    }

    // Starts the program by the first word and does one more each time that it stands; after the last it is stopped.
    // What is not a key has an action of its name. Returns the lines where it stood.
    std::string session(const std::string& words, const std::map<std::string, Action>& actions = {}) {
        std::istringstream list(words);
        std::string stood;
        QTimer timer;
        const auto next = [&] {
            std::string word;
            if (!(list >> word)) return state.run.stop();
            const auto found = actions.find(word);
            if (found != actions.end())
                found->second();
            else
                key(word);
        };
        const auto tick = [&] {
            if (editor->steps().control().state() != StepControl::State::Standing || !editor->isActiveWindow()) return;
            timer.stop();
            stood += (stood.empty() ? "" : " ") + std::to_string(editor->steps().control().line());
            next();
            timer.start(1);
        };
        QObject::connect(&timer, &QTimer::timeout, tick);
        QTimer watchdog;
        QObject::connect(&watchdog, &QTimer::timeout, [&] {
            ADD_FAILURE() << "the program was not stopped after " << stood;
            state.run.stop();
        });
        watchdog.start(20000);
        toFront();
        timer.start(1);
        next();
        return stood;
    }
    void putCaret(int line) {
        editor->txtRoman().setTextCursor(QTextCursor(editor->txtRoman().document()->findBlockByNumber(line - 1)));
    }
    void key(const std::string& word) {
        if (word[0] == '@') {
            putCaret(std::stoi(word.substr(1)));
            return press(Qt::Key_F10, Qt::ControlModifier);
        }
        const QKeyCombination keys = QKeySequence(QString::fromStdString(word))[0];
        press(keys.key(), keys.keyboardModifiers());
    }

    frmExec* console() const {
        for (QWidget* window : QApplication::topLevelWidgets())
            if (auto* found = qobject_cast<frmExec*>(window)) return found;
        return nullptr;
    }
    QTreeView& values() const { return *editor->findChild<QTreeView*>(QStringLiteral("treValues")); }
    // "word kind value", with a star before what has changed.
    std::vector<std::string> shownValues() const {
        std::vector<std::string> rows;
        const QAbstractItemModel& model = *values().model();
        for (int row = 0; row < model.rowCount(); ++row) {
            const QString value = model.index(row, 2).data(Qt::AccessibleTextRole).toString();
            rows.push_back((model.index(row, 0).data().toString() + u'=' + value).toStdString());
        }
        return rows;
    }
    // The tip at the end of a text in a line.
    static QString tipAt(TextPane& pane, int line, const QString& text) {
        QTextCursor place(pane.document()->findBlockByNumber(line - 1));
        const auto column = place.block().text().indexOf(text) + text.size();
        place.movePosition(QTextCursor::Right, QTextCursor::MoveAnchor, static_cast<int>(column));
        const QPoint at = pane.cursorRect(place).center();
        QHelpEvent rest(QEvent::ToolTip, at, pane.viewport()->mapToGlobal(at));
        QApplication::sendEvent(pane.viewport(), &rest);
        return QToolTip::text();
    }
    static void clickMargin(TextPane& pane, int line, Qt::KeyboardModifiers modifiers = {}) {
        auto& margin = *pane.findChild<QWidget*>(QStringLiteral("margin"));
        QTest::mouseClick(&margin, Qt::LeftButton, modifiers,
                          QPoint(3, static_cast<int>((line - pane.firstVisibleLine() + 0.5) * pane.lineHeight())));
    }
};

const QByteArray doubling =
    "suchanA kAhI nAhI\n"
    "a = 1\n"
    "i sAThI 1 te 2 paryaMt\n"
    "a = duppaT(a)\n"
    "puDhachA i\n"
    "dAkhav a\n"
    "upaprAyojan duppaT(n)\n"
    "duppaT = n guNile 2\n"
    "upaprAyojan saMpav\n";

TEST_F(StepsTest, KeysGoThroughAProgram) {
    const struct {
        const char* keys;
        const char* lines;
    } cases[] = {
        {"F11 F11 F11 F11", "2 3 4 8"},
        {"F11 F11 F11 F10 F10 F10", "2 3 4 5 4 5"},
        {"F11 F11 F11 F11 Shift+F11 Shift+F11", "2 3 4 8 5"},
        {"@6 F10", "6"},
        {"F11 @8 @8 F5", "2 8 8"},
        {"F11 F5", "2"},
    };
    for (const auto& one : cases) {
        setProgram(doubling);
        EXPECT_EQ(session(one.keys), one.lines) << one.keys;
        EXPECT_FALSE(editor->isRunning());
        EXPECT_EQ(editor->txtRoman().stepLine(), 0);
    }
}

TEST_F(StepsTest, ABreakPointIsSetInTheMarginAndGoesWithItsLine) {
    setProgram(doubling);
    clickMargin(editor->txtProgram(), 4);
    EXPECT_THAT(editor->txtRoman().breakPoints(), ElementsAre(std::pair(4, 0)));
    EXPECT_EQ(session("F5 F5 F5"), "4 4");
    toFront();
    editor->txtRoman().moveCursor(QTextCursor::Start);
    press(Qt::Key_Return);
    EXPECT_THAT(editor->txtProgram().breakPoints(), ElementsAre(std::pair(5, 0)));
    press(Qt::Key_Backspace);
    press(Qt::Key_F9);
    EXPECT_THAT(editor->txtRoman().breakPoints(), ElementsAre(std::pair(1, 0), std::pair(4, 0)));
    clickMargin(editor->txtRoman(), 4);
    setProgram("a = 1\n");
    EXPECT_THAT(editor->txtRoman().breakPoints(), ElementsAre());
}

TEST_F(StepsTest, ABreakPointAtAPassIsAskedForAndStandsThereOnly) {
    setProgram(
        "i sAThI 1 te 9 paryaMt\n"
        "a = i\n"
        "puDhachA i\n");
    const auto answer = [this](const QString& digits) {
        auto* const answerer = new QTimer(editor.get());
        QObject::connect(answerer, &QTimer::timeout, [answerer, digits] {
            if (QApplication::activeModalWidget() == nullptr) return;
            answerer->deleteLater();
            auto* const box = QApplication::activeModalWidget()->findChild<QSpinBox*>(QStringLiteral("txtPass"));
            if (!digits.isEmpty()) QTest::keyClicks(box, digits);
            QTest::keyClick(box, digits.isEmpty() ? Qt::Key_Escape : Qt::Key_Return);
        });
        answerer->start(5);
    };
    answer(QStringLiteral("4"));
    clickMargin(editor->txtRoman(), 2, Qt::ShiftModifier);
    std::string values;
    EXPECT_EQ(session("F5 look", {{"look",
                                   [&] {
                                       values = shownValues()[0];
                                       clickMargin(editor->txtRoman(), 1);  // the count goes on
                                       key("F5");
                                   }}}),
              "2");
    EXPECT_EQ(values, "इ=४, बदलले");
    toFront();
    putCaret(2);
    answer(QStringLiteral("9"));
    press(Qt::Key_F9, Qt::ControlModifier);
    EXPECT_THAT(editor->txtProgram().breakPoints(), ElementsAre(std::pair(1, 0), std::pair(2, 9)));
    answer({});
    press(Qt::Key_F9, Qt::ControlModifier);
    EXPECT_EQ(editor->txtProgram().breakPoints().at(2), 9);
}

// Names of a function are told from those of the main program; what the last line changed is marked.
TEST_F(StepsTest, ValuesAreShownAndChanged) {
    setProgram(doubling);
    std::vector<std::string> inFunction;
    QString tip;
    QString tipOfCaller;
    session("F11 F11 F11 look change F5", {{"look",
                                            [&] {
                                                inFunction = shownValues();
                                                key("F11");
                                            }},
                                           {"change", [&] {
                                                const QModelIndex value = values().model()->index(1, 2);
                                                const QPoint place = values().visualRect(value).center();
                                                QTest::mouseClick(values().viewport(), Qt::LeftButton, {}, place);
                                                QTest::mouseDClick(values().viewport(), Qt::LeftButton, {}, place);
                                                auto* box = values().findChild<QLineEdit*>(QStringLiteral("txtValue"));
                                                ASSERT_NE(box, nullptr);
                                                EXPECT_EQ(box->text(), QStringLiteral("1"));
                                                QTest::keyClicks(box, QStringLiteral("20"));
                                                QTest::keyClick(box, Qt::Key_Return);
                                                QApplication::processEvents();
                                                tip = tipAt(editor->txtProgram(), 8, QStringLiteral("= n"));
                                                tipOfCaller = tipAt(editor->txtRoman(), 2, QStringLiteral("a"));
                                                key("F5");
                                            }}});
    EXPECT_THAT(inFunction, ElementsAre("अ=१", "इ=१, बदलले"));
    EXPECT_EQ(tip.toStdString(), "न = २०");
    EXPECT_EQ(tipOfCaller.toStdString(), "अ = १");
    EXPECT_THAT(console()->printedLines(), ElementsAre("80"));
}

// However a session ends, nothing hangs, and the editor can be used again.
TEST_F(StepsTest, SessionsEndInEveryWay) {
    const auto soon = [this](Action action) { QTimer::singleShot(60, editor.get(), std::move(action)); };
    const auto keyOnConsole = [this](Qt::Key key) { QTest::keyClick(console()->windowHandle(), key); };
    const QByteArray endless = "jovar 1 lahAn 2 tovar\na = 1\nkar\n";
    const QByteArray asking = "dAkhav 1\nghe a\ndAkhav a\n";
    const struct {
        const char* what;
        QByteArray program;
        const char* keys;
        Action action;  // of the word "act"
        const char* lines;
    } cases[] = {
        {"the console is closed", endless, "F11 act", [&] { console()->close(); }, "1"},
        {"stopped on the console", endless, "F11 act", [&] { keyOnConsole(Qt::Key_F4); }, "1"},
        {"steps by keys on the console", endless, "F11 act act", [&] { keyOnConsole(Qt::Key_F11); }, "1 2 3"},
        {"stopped while it asks", asking, "F11 F11 act",
         [&] {
             soon([&] { keyOnConsole(Qt::Key_F4); });
             press(Qt::Key_F11);
         },
         "1 2"},
        {"answered, and it stands again", asking, "F11 F11 act",
         [&] {
             soon([&] {
                 QTest::keyClick(QApplication::focusWidget(), Qt::Key_7);
                 QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
             });
             press(Qt::Key_F11);
         },
         "1 2 3"},
        {"paused in a loop", "dAkhav 1\n" + endless, "act",
         [&] {
             soon([&] { keyOnConsole(Qt::Key_F6); });
             press(Qt::Key_F5);
         },
         nullptr},
        {"slowly, then at full speed", "dAkhav 1\ndAkhav 2\n", "act",
         [&] {
             soon([&] { keyOnConsole(Qt::Key_F5); });
             press(Qt::Key_F5, Qt::ControlModifier);
         },
         ""},
        {"an error in a step", "a = 0\nb = 1 bhAgile a\n", "F11 F11 F11", {}, "1 2"},
    };
    user.errorAnswers = {false};
    for (const auto& one : cases) {
        SCOPED_TRACE(one.what);
        setProgram(one.program);
        const std::string before = roman();
        const std::string stood = session(one.keys, {{"act", one.action}});
        if (one.lines != nullptr)
            EXPECT_EQ(stood, one.lines);
        else
            EXPECT_EQ(stood.size(), 1U);
        EXPECT_FALSE(editor->isRunning());
        EXPECT_FALSE(editor->txtRoman().isLocked());
        EXPECT_EQ(roman(), before);
    }
    EXPECT_THAT(user.errors, ElementsAre(std::pair(11, 2)));
}

TEST_F(StepsTest, AnEditorThatIsClosedWhileTheProgramStandsStopsIt) {
    setProgram("a = 1\n");
    EXPECT_EQ(session("F11 close", {{"close", [&] { editor->close(); }}}), "1");
    EXPECT_FALSE(editor->isVisible());
}

// All of a deep recursion is there, and only the last calls are shown.
TEST_F(StepsTest, ARecursionOfAThousandCallsCanBeLookedAt) {
    setProgram(
        "dAkhav berij(1000)\n"
        "upaprAyojan berij(n)\n"
        "berij = 0\n"
        "jar n moThA 0 tar\n"
        "berij = n adhik berij(n vajA 1)\n"
        "nAhItar\n"
        "suchanA shevaT\n"
        "n = 0\n"
        "saMpav jar\n"
        "upaprAyojan saMpav\n");
    std::vector<std::string> rows;
    EXPECT_EQ(session("@8 look", {{"look",
                                   [&] {
                                       rows = shownValues();
                                       key("F5");
                                   }}}),
              "8");
    ASSERT_GT(rows.size(), 30U);
    EXPECT_LT(rows.size(), 50U);
    EXPECT_THAT(rows[1], HasSubstr("बेरिज (१००१): न=०"));
    EXPECT_THAT(console()->printedLines(), ElementsAre("500500"));
}

// A class may look at an array of 10,000; only what is seen of it is asked for.
TEST_F(StepsTest, ALargeArrayUnfolds) {
    setProgram("mitI a(9999)\na(9999) = 5\ndAkhav a(9999)\n");
    QString last;
    session("@3 look", {{"look", [&] {
                             const QModelIndex array = values().model()->index(0, 0);
                             values().expand(array);
                             values().scrollToBottom();
                             EXPECT_EQ(values().model()->rowCount(array), 10000);
                             last = values().model()->index(9999, 2, array).data().toString();
                             key("F5");
                         }}});
    EXPECT_EQ(last.toStdString(), "५");
}

class TraceTest : public StepsTest {
  protected:
    // A window of its own, so that the editor has the keyboard only after a while.
    void openTrace() {
        press(Qt::Key_M, Qt::ControlModifier | Qt::ShiftModifier);
        toFront();
        EXPECT_TRUE(QTest::qWaitFor([this] { return QApplication::activeWindow() == editor.get(); }));
    }
    frmTrace& window() const { return *editor->findChild<frmTrace*>(); }
    std::string shown(int row) const {
        std::string text;
        for (int column = 0; column < window().model().columnCount(); ++column)
            text += (column == 0 ? "" : "|") +
                    window().model().index(row, column).data(Qt::AccessibleTextRole).toString().toStdString();
        return text;
    }
    void choose(int row) const {
        QTableView& board = window().board();
        const QModelIndex index = window().model().index(row, 0);
        board.scrollTo(index);
        QTest::mouseClick(board.viewport(), Qt::LeftButton, {}, board.visualRect(index).center());
    }
    static int pixelsAbove(int grey, const QImage& picture) {
        int count = 0;
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x) count += qGray(picture.pixel(x, y)) > grey ? 1 : 0;
        return count;
    }
    PictureBox& past() const { return *console()->findChild<PictureBox*>(QStringLiteral("Past")); }
};

const QByteArray twoPasses =
    "i sAThI 1 te 2 paryaMt\n"
    "dAkhav i\n"
    "puDhachA i\n";

TEST_F(TraceTest, AnEarlierMomentIsShownAgain) {
    setProgram(twoPasses);
    openTrace();
    press(Qt::Key_F5);
    EXPECT_FALSE(editor->isRunning());
    ASSERT_EQ(window().model().rowCount(), 5);
    EXPECT_EQ(shown(0), "१|इ साठी १ ते २ पर्यंत|१, बदलले");
    EXPECT_EQ(shown(1), "२|दाखव इ|१");
    EXPECT_EQ(shown(2), "३|पुढचा इ|२, बदलले");
    const QImage end = console()->grab().toImage();
    choose(1);
    EXPECT_EQ(editor->txtProgram().stepLine(), 2);
    EXPECT_THAT(shownValues(), ElementsAre("इ=१"));
    ASSERT_TRUE(past().isVisible());
    EXPECT_EQ(expectLettersWhereDrawn(past()).split(u'\n')[0], QStringLiteral("१")) << "what came later is not read";
    const QImage once = past().Image();
    choose(3);
    const QImage twice = past().Image();
    EXPECT_LT(pixelsAbove(200, once), pixelsAbove(200, twice));  // two lines were printed by then
    EXPECT_GT(pixelsAbove(20, once) * 10, pixelsAbove(20, twice) * 8) << "what came later is seen faintly";
    choose(1);
    EXPECT_EQ(past().Image(), once);
    auto* const guess = window().findChild<QCheckBox*>(QStringLiteral("chkGuess"));
    guess->click();
    EXPECT_LT(pixelsAbove(20, past().Image()) * 10, pixelsAbove(20, once) * 8) << "what is guessed is not seen";
    guess->click();
    EXPECT_EQ(past().Image(), once);
    QTest::keyClick(&window().board(), Qt::Key_Escape);
    EXPECT_FALSE(past().isVisible());
    EXPECT_EQ(console()->grab().toImage(), end);
    EXPECT_EQ(window().text(true),
              "line,text,इ\n1,इ साठी १ ते २ पर्यंत,१\n2,दाखव इ,१\n3,पुढचा इ,२\n2,दाखव इ,२\n3,पुढचा इ,३\n");
    user.files = {path("trace.csv"), path("trace.pdf")};
    const auto press = [this](const char* button) {
        QTest::mouseClick(window().findChild<QPushButton*>(QLatin1String(button)), Qt::LeftButton);
    };
    for (const char* button : {"cmdCsv", "cmdPdf", "cmdCopy"}) press(button);
    EXPECT_EQ(contentOf(path("trace.csv")).toStdString(), window().text(true));
    EXPECT_TRUE(contentOf(path("trace.pdf")).startsWith("%PDF"));
#ifndef _WIN32  // whose print dialog is the system's own
    printInto(path("printed.pdf"));
    press("cmdPrint");
    EXPECT_TRUE(contentOf(path("printed.pdf")).startsWith("%PDF"));
#endif
    EXPECT_EQ(QApplication::clipboard()->text().toStdString(), window().text(false));
    editor->unloadConsole();  // as for another program
    choose(1);
    EXPECT_THAT(shownValues(), ElementsAre("इ=१"));
    toFront();
    type("x");
    EXPECT_EQ(window().model().rowCount(), 0);
}

TEST_F(TraceTest, WhatHasRunIsSeenWhileTheProgramAsks) {
    setProgram("a = 5\nghe b\na = 6\n");
    openTrace();
    std::string seen;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, [&] {
        if (window().model().rowCount() == 0) return;
        seen = std::to_string(window().model().rowCount()) + ' ' + shown(0) + ' ' + shownValues()[0];
        state.run.stop();
    });
    look.start(20);
    QTimer::singleShot(5000, editor.get(), [this] { state.run.stop(); });
    press(Qt::Key_F5);
    EXPECT_THAT(seen, testing::StartsWith("2 १|अ = ५|५, बदलले| अ=५"));
}

TEST_F(TraceTest, WhoGuessesFirstSeesValuesWhenAsked) {
    setProgram(twoPasses);
    openTrace();
    QTest::mouseClick(window().findChild<QCheckBox*>(QStringLiteral("chkGuess")), Qt::LeftButton, {}, QPoint(8, 12));
    ASSERT_TRUE(window().model().isGuessing());
    std::string covered;
    session("F11 F11 F11 look", {{"look", [&] {
                                      covered = shown(1) + ' ' + shownValues()[0];
                                      QTest::mouseClick(window().findChild<QPushButton*>(QStringLiteral("cmdUncover")),
                                                        Qt::LeftButton);
                                      covered += ' ' + shown(1) + ' ' + shownValues()[0];
                                      state.run.stop();
                                  }}});
    EXPECT_EQ(covered, "२|दाखव इ|? इ=? २|दाखव इ|१ इ=१");
}

TEST_F(TraceTest, ATypedGuessIsCheckedAndTheNextOneAskedFor) {
    setProgram("a = 5\na = a * #-1#\ndAkhav a\nb = \"chAMgale\"\nc = 1\n");
    openTrace();
    press(Qt::Key_F5);
    QTest::mouseClick(&window().board(), Qt::LeftButton);
    choose(0);
    QTest::keyClick(&window().board(), Qt::Key_Tab);
    QTest::keyClick(window().focusWidget(), Qt::Key_Space);  // what stands beside it: to guess first
    auto* const box = window().findChild<QLineEdit*>(QStringLiteral("txtGuess"));
    const auto label = [this](const char* name) {
        return window().findChild<QLabel*>(QLatin1String(name))->accessibleName().toStdString();
    };
    std::vector<std::string> told;
    for (const char* typed : {"-5", "", "chAMgale", "2"}) {
        told.push_back(label("lblGuess"));
        if (*typed == '\0') {
            EXPECT_FALSE(box->isEnabled());
            QTest::mouseClick(window().findChild<QPushButton*>(QStringLiteral("cmdUncover")), Qt::LeftButton);
            continue;
        }
        QTest::keyClicks(box, QLatin1String(typed));
        QTest::keyClick(box, Qt::Key_Return);
        told.push_back(label("lblAnswer"));
    }
    told.push_back(label("lblGuess"));
    EXPECT_THAT(told, ElementsAre("पुढची किंमत अ", "अगदी बरोबर", "या ओळीत किंमत बदलत नाही", "पुढची किंमत ब", "अगदी बरोबर",
                                  "पुढची किंमत च", "उत्तर वेगळे आहे", "पुढे एकही ओळ नाही"));
    EXPECT_EQ(window().model().index(4, 0).data(Qt::AccessibleDescriptionRole).toString().toStdString(), "५ पैकी रांग ५");
}

TEST_F(StepsTest, ANarrowToolBarHasTheButtonsForSteps) {
    setProgram(doubling);
    const auto seen = [this] {
        std::string keys;
        for (const char* key : {"FileNew", "EditCut", "RunEnd", "RunStepInto", "RunStepOut"})
            keys += editor->findChild<QToolButton*>(QLatin1String(key))->isVisible() ? '1' : '0';
        return keys;
    };
    for (int width = 700; width > 300 && seen()[3] == '1'; width -= 10) {  // how wide a button is depends on the font
        editor->resize(width, 600);
        QApplication::processEvents();
    }
    EXPECT_EQ(seen(), "11100");
    std::string standing;
    session("F11 F11 look", {{"look", [&] {
                                  standing = seen();
                                  state.run.stop();
                              }}});
    EXPECT_EQ(standing, "00111");
    QApplication::processEvents();
    EXPECT_EQ(seen(), "11100");
}

TEST_F(StepsTest, TheScriptIsLinkedWithTheProgram) {
    setProgram(doubling);
    editor->ViewScript();
    auto* const table = editor->findChild<QTableView*>(QStringLiteral("tblScript"));
    ASSERT_NE(table, nullptr);
    putCaret(4);
    const QModelIndex now = table->currentIndex();
    EXPECT_EQ(now.siblingAtColumn(1).data().toString().toStdString(), "अ = दुप्पट(अ)");
    EXPECT_EQ(now.siblingAtColumn(2).data().toString().toStdString(), "अ = दुप्पट(अ)");
    const QModelIndex print = now.siblingAtRow(now.row() + 2);
    EXPECT_THAT(print.siblingAtColumn(2).data().toString().toStdString(), HasSubstr("PrintString अ"));
    QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, table->visualRect(print).center());
    EXPECT_EQ(editor->txtRoman().currentLine(), 6);
}

}  // namespace
}  // namespace tolvan
