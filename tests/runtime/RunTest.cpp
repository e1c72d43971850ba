// Whole runs of programs in the window.
#include "ConsoleFixture.h"
#include "platform/encoding/Deva.h"
#include "support/Cases.h"
#include "support/ScriptedUser.h"

#include <sstream>

namespace tolvan {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

class RunTest : public ConsoleTest {
  protected:
    void expectEnded(const std::vector<std::string>& lines) {
        EXPECT_FALSE(state.IsRunning);
        EXPECT_TRUE(console->isVisible());
        EXPECT_EQ(picture(), printed(withEnd(lines)));
        EXPECT_THAT(editor.programSelections, IsEmpty());
    }
    void expectClosedAt(Span program, Span roman) {
        EXPECT_FALSE(state.IsRunning);
        EXPECT_FALSE(console->isVisible());
        EXPECT_THAT(editor.programSelections, ElementsAre(program));
        EXPECT_THAT(editor.romanSelections, ElementsAre(roman));
        EXPECT_EQ(editor.broughtBack, 1);
    }
};

TEST_F(RunTest, EndsWithItsMessagesAndClosesByAKey) {
    run({"PrintString \"kml\"", "parentform.printstring 12 ' numbers are text too"});
    expectEnded({"kml", "12"});
    EXPECT_EQ(state.CompiledScript, "");

    QTest::keyClick(&display(), Qt::Key_Shift);
    QTest::keyClick(&display(), Qt::Key_F4);
    EXPECT_TRUE(console->isVisible()) << "these are no characters";
    QTest::keyClick(&display(), Qt::Key_Space);
    EXPECT_FALSE(console->isVisible());
    EXPECT_EQ(editor.broughtBack, 1);
}

TEST_F(RunTest, RunsNothingWithoutANewCompile) {
    run({"PrintString \"kml\"", "DrawBox 0, 100, 300, 300, 255, True"});
    console->execute();
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
    if (expected.back() == u"closed at 1")
        expectClosedAt({3, 3}, {3, 2});
    else if (expected.back() == u"closed at 2")
        expectClosedAt({7, 4}, {6, 2});
    else
        expectEnded(expected.back() == u"shows k" ? std::vector<std::string>{"k"} : std::vector<std::string>{});
}

INSTANTIATE_TEST_SUITE_P(, OutcomeTest, testing::ValuesIn(sectionsOf("runtime/runs.cases")),
                         [](const auto& test) { return test.param.testName(); });

TEST_F(RunTest, AnErrorBeforeTheProgramMarksItsFirstLine) {
    ScriptedUser user;
    user.errorAnswers = {false};
    const ReplacedDialogs replaced(user);
    state.CompiledScript = "Sub Main(\r\nEnd Sub\r\n";
    console->execute();
    EXPECT_EQ(user.errors.size(), 1U);
    expectClosedAt({0, 2}, {0, 2});
}

TEST_F(RunTest, WithoutAnEditorErrorsAreToldInTheConsole) {
    open(nullptr);
    run({"PrintString \"k\"", "a = 1 / 0"});
    expectEnded(
        {"k", std::string("zuNyne -gakar tolvn beiskla krta yet nahI"_deva), std::string("gfbf {11, }Aae¦ {2}"_deva)});
    QTest::keyClick(&display(), Qt::Key_Return);
    EXPECT_FALSE(console->isVisible());
}

// The real error box.
TEST_F(RunTest, TheErrorBoxIsAnsweredByItsButtons) {
    onceDialogIsUp([](QDialog& box) { click(box, "cmdRun"); });
    run({"PrintString \"k\"", "a = 1 / 0"});
    expectEnded({"k"});
    onceDialogIsUp([](QDialog& box) { click(box, "cmdStop"); });
    run({"PrintString \"k\"", "a = 1 / 0"});
    expectClosedAt({7, 4}, {6, 2});
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
    EXPECT_FALSE(state.IsRunning);
    EXPECT_FALSE(console->isVisible());
    EXPECT_EQ(editor.programSelections.size(), 1U);
    EXPECT_EQ(editor.broughtBack, 1);
    EXPECT_FALSE(inputBox().isVisible());
}

INSTANTIATE_TEST_SUITE_P(, StopTest, testing::Combine(testing::ValuesIn(busyPrograms), testing::ValuesIn(stops)),
                         [](const auto& test) {
                             return std::string(std::get<0>(test.param).name) + std::get<1>(test.param).name;
                         });

TEST_F(RunTest, RunsAgainAfterItWasStopped) {
    soon([this] { QTest::keyClick(&display(), Qt::Key_F4); });
    run({"Do", "Loop"});
    EXPECT_FALSE(console->isVisible());
    editor.programSelections.clear();
    console->show();
    run({"PrintString \"kml\""});
    expectEnded({"kml"});
}

TEST_F(RunTest, KeysDoNothingToARunningProgram) {
    soon([this] {
        QTest::keyClicks(&display(), QStringLiteral("abc \r"));
        QTest::keyClick(&display(), Qt::Key_Escape);
        console->execute();  // nor does a second run
        once([] { return true; }, [this] { state.IsRunning = false; });
    });
    run({"Do", "a = a + 1", "Loop"});
    EXPECT_EQ(editor.programSelections.size(), 1U);
}

TEST_F(RunTest, ResizedInTheMiddle) {
    soon([this] {
        console->resize(900, 700);
        once([] { return true; }, [this] { console->resize(500, 400); });
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
