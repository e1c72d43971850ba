// Whole sessions of going through programs, by keys and the mouse: where they stand, what is shown, and that nothing
// hangs or is lost, however they end.
#include "EditorFixture.h"
#include "editor/steps/EditorSteps.h"
#include "editor/steps/ValuePanel.h"
#include "platform/picturebox/PictureBox.h"
#include "runtime/frmExec.h"

#include <QApplication>
#include <QHelpEvent>
#include <QLineEdit>
#include <QTextBlock>
#include <QTimer>
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
    void key(const std::string& word) {
        if (word[0] == '@') {
            const QTextBlock line = editor->txtRoman().document()->findBlockByNumber(std::stoi(word.substr(1)) - 1);
            editor->txtRoman().setTextCursor(QTextCursor(line));
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
    static void clickMargin(TextPane& pane, int line) {
        auto& margin = *pane.findChild<QWidget*>(QStringLiteral("margin"));
        QTest::mouseClick(&margin, Qt::LeftButton, {},
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
    EXPECT_THAT(editor->txtRoman().breakPoints(), ElementsAre(4));
    EXPECT_EQ(session("F5 F5 F5"), "4 4");
    toFront();
    editor->txtRoman().moveCursor(QTextCursor::Start);
    press(Qt::Key_Return);
    EXPECT_THAT(editor->txtProgram().breakPoints(), ElementsAre(5));
    press(Qt::Key_Backspace);
    press(Qt::Key_F9);
    EXPECT_THAT(editor->txtRoman().breakPoints(), ElementsAre(1, 4));
    clickMargin(editor->txtRoman(), 4);
    setProgram("a = 1\n");
    EXPECT_THAT(editor->txtRoman().breakPoints(), ElementsAre());
}

// Names of a function are told from those of the main program; what the last line changed is marked.
TEST_F(StepsTest, ValuesAreShownAndChanged) {
    setProgram(doubling);
    std::vector<std::string> inFunction;
    QString tip;
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
                                                key("F5");
                                            }}});
    EXPECT_THAT(inFunction, ElementsAre("अ=१", "इ=१, बदलले"));
    EXPECT_EQ(tip.toStdString(), "न = २०");
    EXPECT_THAT(console()->printedLines(), ElementsAre("80"));
}

}  // namespace
}  // namespace tolvan
