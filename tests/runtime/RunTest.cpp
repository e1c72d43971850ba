// Whole runs of programs in the window.
#include "ConsoleFixture.h"
#include "platform/encoding/Deva.h"
#include "runtime/MarkFailingLine.h"
#include "support/Cases.h"
#include "support/ScriptedUser.h"

#include <gtest/gtest.h>
#include <sstream>

namespace tolvan {
namespace {

TEST(MarkFailingLine, LineOfTheModuleToLineOfTheProgram) {
    // The poll of line k (from 1) is line 2k of the module, its statement 2k + 1.
    struct {
        int script;
        int program;
    } const cases[] = {{0, -1}, {1, 0}, {2, 0}, {3, 0}, {4, 1},          {5, 2},
                       {6, 2},  {7, 2}, {8, 3}, {9, 4}, {200001, 100000}};
    for (const auto& [script, program] : cases) EXPECT_EQ(errorLineOf(script), program) << script;
}

TEST(MarkFailingLine, SpansReachToTheCarriageReturn) {
    const std::string text = "one\r\n\r\nthree";
    struct {
        std::int32_t line;
        LineSpan span;
    } const cases[] = {{-1, {0, 4}}, {0, {0, 4}}, {1, {5, 1}}, {2, {7, 6}}, {3, {14, 14}}};
    for (const auto& [line, span] : cases) EXPECT_EQ(spanOfLine(text, line), span) << line;
    EXPECT_EQ(spanOfLine("", 0), (LineSpan{0, 1}));
    // A text that has become shorter since.
    for (std::int32_t line = 0; line < 50; ++line) EXPECT_LE(spanOfLine(text, line).start, text.size() + 2);
}

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

class RunTest : public ConsoleTest {
  protected:
    void expectEnded(const std::vector<std::string>& lines) {
        EXPECT_TRUE(state.isIdle());
        EXPECT_TRUE(console->isVisible());
        EXPECT_EQ(picture(), printed(withEnd(lines)));
    }
    void expectClosedAt(Span program, Span roman) {
        EXPECT_TRUE(state.isIdle());
        EXPECT_FALSE(console->isVisible());
        EXPECT_THAT(editor.programSelections, ElementsAre(program));
        EXPECT_THAT(editor.romanSelections, ElementsAre(roman));
        EXPECT_EQ(editor.broughtBack, 1);
    }
};

TEST_F(RunTest, EndsWithItsMessagesAndClosesByAKey) {
    run({"PrintString \"kml\"", "parentform.printstring 12 ' numbers are text too"});
    expectEnded({"kml", "12"});
    EXPECT_THAT(editor.programSelections, IsEmpty());

    QTest::keyClick(&display(), Qt::Key_Shift);
    QTest::keyClick(&display(), Qt::Key_F4);
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, {}, QStringLiteral("\r"), true);
    QApplication::sendEvent(&display(), &held);
    EXPECT_TRUE(console->isVisible()) << "these are no characters, or a key that is still held from the last answer";
    QTest::keyClick(&display(), Qt::Key_Space);
    EXPECT_FALSE(console->isVisible());
    EXPECT_EQ(editor.broughtBack, 1);
}

TEST_F(RunTest, TheEndIsToldBesideADrawing) {
    run({"DrawLine 0,0,200,200", "DrawBox 0,0,800,800,255,TRUE"});
    QImage red(display().size(), QImage::Format_RGB32);
    red.fill(Qt::red);
    EXPECT_EQ(picture(), red);
    EXPECT_TRUE(strip().isTelling());
    EXPECT_EQ(strip().geometry().bottom() + 1, display().height());
    EXPECT_LT(strip().height(), 50) << "on one line";
    console->resize(400, 500);
    EXPECT_EQ(strip().geometry().bottom() + 1, display().height());
    EXPECT_EQ(strip().width(), display().width());
    EXPECT_GT(strip().height(), 50) << "on two lines";
    run({"DrawLine 0,0,200,200", "ClearScreen"});
    EXPECT_FALSE(strip().isTelling());
    expectEnded({});
}

TEST_F(RunTest, EachRunBeginsOnAnEmptyDisplay) {
    run({"PrintString \"kml\"", "DrawBox 0, 100, 300, 300, 255, True"});
    run({});
    expectEnded({});
}

class OutcomeTest : public RunTest, public testing::WithParamInterface<Section> {};

TEST_P(OutcomeTest, IsAsExpected) {
    const std::vector<std::string> parts = GetParam().parts("\n");
    const QStringList expected = QString::fromStdString(parts.at(1)).split(u'\n');
    ScriptedUser user;
    if (expected.size() > 1) user.errorAnswers = {expected.front().endsWith(QStringLiteral("go on"))};
    const ReplacedDialogs replaced(user);
    std::istringstream lines(parts.at(0));
    std::vector<std::string> statements;
    for (std::string line; std::getline(lines, line);) statements.push_back(line);
    run(statements);

    for (const auto& [number, line] : user.errors)
        EXPECT_TRUE(expected.front().startsWith(QStringLiteral("asked %1 %2:").arg(number).arg(line)))
            << number << " " << line;
    EXPECT_EQ(user.errors.size() + 1, static_cast<std::size_t>(expected.size()));
    const QString& outcome = expected.back();
    if (outcome.startsWith(u"closed at line ")) {
        const Span programLines[] = {{0, 2}, {3, 3}, {7, 4}};
        const int line = outcome.section(u' ', -1).toInt() - 1;
        expectClosedAt(programLines[line], {3 * line, 2});
    } else {
        expectEnded(outcome == u"shows k" ? std::vector<std::string>{"k"} : std::vector<std::string>{});
    }
}

INSTANTIATE_TEST_SUITE_P(, OutcomeTest, testing::ValuesIn(sectionsOf("runtime/runs.cases")),
                         [](const auto& test) { return test.param.testName(); });

TEST_F(RunTest, AnErrorBeforeTheProgramMarksItsFirstLine) {
    ScriptedUser user;
    user.errorAnswers = {false};
    const ReplacedDialogs replaced(user);
    console->execute("Sub Main(\r\nEnd Sub\r\n", {});
    EXPECT_EQ(user.errors.size(), 1U);
    expectClosedAt({0, 2}, {0, 2});
}

// As a stand-alone program runs.
TEST_F(RunTest, WithoutAnEditorTheLineIsComputedAndTheConsoleCloses) {
    ScriptedUser user;
    user.errorAnswers = {true, false};
    const ReplacedDialogs replaced(user);
    open(nullptr);
    const TestModule module({"PrintString \"k\"", "a = 1 / 0", "b = 2", "a = 1 / 0"});
    console->execute(module.text, {});
    expectEnded({"k"});
    console->execute(TestModule({"b = 2", "b = 2", "a = 1 / 0"}).text, {});
    EXPECT_FALSE(console->isVisible());
    // The second statement's line is computed as the third, the third's as the third; see errorLineOf.
    EXPECT_EQ(user.errors, (std::vector<std::pair<int, int>>{{11, 3}, {11, 3}}));
}

// The real error box.
TEST_F(RunTest, TheErrorBoxIsAnsweredByItsButtons) {
    QWidget other;  // in front, as the editor while the console is still coming up
    other.show();
    QApplication::setActiveWindow(&other);
    onceDialogIsUp([this](QDialog& box) {
        EXPECT_EQ(box.parentWidget(), console.get());
        click(box, "cmdRun");
    });
    run({"PrintString \"k\"", "a = 1 / 0"});
    expectEnded({"k"});
    EXPECT_TRUE(QTest::qWaitForWindowActive(console.get()));
    EXPECT_TRUE(display().hasFocus());
    onceDialogIsUp([](QDialog& box) { click(box, "cmdStop"); });
    run({"PrintString \"k\"", "a = 1 / 0"});
    EXPECT_EQ(editor.programSelections, (std::vector<Span>{{3, 3}, {3, 3}})) << "both answers mark the line";
    EXPECT_EQ(editor.romanSelections, (std::vector<Span>{{3, 2}, {3, 2}}));
    EXPECT_FALSE(console->isVisible());
}

// What a program is doing when it is stopped, and how.
struct Busy {
    const char* name;
    std::vector<std::string> statements;
    bool asks = false;
    bool fails = false;

    friend std::ostream& operator<<(std::ostream& out, const Busy& busy) { return out << busy.name; }
};
const Busy busyPrograms[] = {
    {"Looping", {"Do", "a = a + 1", "Loop"}},
    {"Printing", {"Do", "PrintString \"kml {12}\"", "Loop"}},
    {"Drawing", {"Do", "DrawLine Rnd * 800, Rnd * 600, Rnd * 800, Rnd * 600, Rnd * 16777215", "Loop"}},
    {"Asking", {"Do", "InputString a", "Loop"}, true, false},
    {"Failing", {"a = 1", "b = 2 / 0", "PrintString \"never\""}, false, true},
};
struct Stop {
    const char* name;
    void (*press)(frmExec&);

    friend std::ostream& operator<<(std::ostream& out, const Stop& stop) { return out << stop.name; }
};
QWidget* keyboardOf(frmExec& console) {
    QWidget* const focused = QApplication::focusWidget();
    return focused != nullptr ? focused : &console;
}
const Stop stops[] = {
    {"ByF4", [](frmExec& console) { QTest::keyClick(keyboardOf(console), Qt::Key_F4); }},
    {"ByCtrlC", [](frmExec& console) { QTest::keyClick(keyboardOf(console), Qt::Key_C, Qt::ControlModifier); }},
    {"ByClosing", [](frmExec& console) { console.close(); }},
    {"ByCloseForm", [](frmExec& console) { console.CloseForm(); }},
};

class StopTest : public RunTest, public testing::WithParamInterface<std::tuple<Busy, Stop>> {};

TEST_P(StopTest, EndsAndCloses) {
    const auto& [program, stop] = GetParam();
    const auto press = [this, how = stop.press] { how(*console); };
    if (program.asks)
        onceInputIsWanted(press);
    else if (program.fails)
        onceDialogIsUp([press](QDialog& box) {
            press();
            if (box.isVisible()) box.close();  // closing a window does not close the dialog above it
        });
    else
        QTimer::singleShot(30, console.get(), press);
    run(program.statements);
    EXPECT_TRUE(state.isIdle());
    EXPECT_FALSE(console->isVisible());
    EXPECT_EQ(editor.programSelections.size(), 1U);
    EXPECT_EQ(editor.broughtBack, 1);
    EXPECT_FALSE(inputBox().isVisible());
}

INSTANTIATE_TEST_SUITE_P(, StopTest, testing::Combine(testing::ValuesIn(busyPrograms), testing::ValuesIn(stops)),
                         [](const auto& test) {
                             return std::string(std::get<0>(test.param).name) + std::get<1>(test.param).name;
                         });

TEST_F(RunTest, KeysDoNothingToARunningProgram) {
    soon([this] {
        QTest::keyClicks(&display(), QStringLiteral("abc \r"));
        QTest::keyClick(&display(), Qt::Key_Escape);
        run({"PrintString \"never\""});  // nor does a second run
        once([] { return true; }, [this] { state.stop(); });
    });
    run({"Do", "a = a + 1", "Loop"});
    EXPECT_EQ(editor.programSelections.size(), 1U);
}

TEST_F(RunTest, ResizedInTheMiddle) {
    soon([this] {
        console->resize(900, 700);
        once([this] { return picture().pixel(display().width() - 1, 600) == 0xFFFF0000; },
             [this] { console->resize(500, 400); });
    });
    run({"PrintString \"kml\"", "Do While DisplayWidth < 850", "Loop", "DrawPoint DisplayWidth - 1, 600, 255",
         "DrawPoint 3, 100, 0", "Do While DisplayWidth > 500", "Loop", "PrintString \"kml\""});
    const auto line = [this](int top) { return picture().copy(0, top, display().width(), 30); };
    EXPECT_EQ(line(0), printed({"kml"}).copy(0, 0, display().width(), 30)) << "what was printed before";
    EXPECT_EQ(line(100), line(0));
    console->resize(900, 700);
    QApplication::processEvents();
    EXPECT_EQ(picture().pixel(display().width() - 1, 600), 0xFFFF0000) << "what was drawn before and cut off";
}

}  // namespace
}  // namespace tolvan
