// Scrolling back to what was printed before, and selecting it.
#include "ConsoleFixture.h"
#include "dialogs/Look.h"
#include "platform/encoding/Deva.h"
#include "runtime/ScrollBack.h"
#include "support/LetterPlaces.h"

#include <QClipboard>
#include <QWheelEvent>

namespace tolvan {
namespace {

const std::vector<std::string> hundredLines = {"For i = 1 To 100", "PrintString i", "Next"};

class ScrollBackTest : public ConsoleTest {
  protected:
    ScrollBack& view() { return *console->findChild<ScrollBack*>(); }
    static void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
    void turnWheel(int eighths) {
        QWheelEvent event({50, 50}, display().mapToGlobal(QPointF(50, 50)), {}, {0, eighths}, {}, {}, {}, false);
        QApplication::sendEvent(&display(), &event);
    }
    // The row of the view with this number, and how a line looks.
    QImage row(int number) {
        const int line = lineHeight();
        return view().Image().copy(0, (display().height() - line) % line + number * line, 500, line);
    }
    QImage looks(const std::string& line) { return printed({line}).copy(0, 0, 500, lineHeight()); }
    int lineHeight() { return static_cast<int>(ConsoleText(display()).LineHeight()); }
    static QString copied() {
        QApplication::clipboard()->clear();
        press(Qt::Key_C, Qt::ControlModifier);
        return QApplication::clipboard()->text();
    }
    void drag(QPoint from, QPoint to) {
        QTest::mousePress(&display(), Qt::LeftButton, {}, from);
        QMouseEvent move(QEvent::MouseMove, to, display().mapToGlobal(to), Qt::NoButton, Qt::LeftButton, {});
        QApplication::sendEvent(&display(), &move);
        QTest::mouseRelease(&display(), Qt::LeftButton, {}, to);
    }
};

// The console has 15 rows; at the end stand the lines 89 to 100 and the end messages.
TEST_F(ScrollBackTest, PagesAndTheWheelMoveThroughTheLines) {
    run(hundredLines);
    turnWheel(-120);
    press(Qt::Key_PageDown);
    EXPECT_FALSE(view().isShown());
    press(Qt::Key_PageUp);
    EXPECT_EQ(row(0), looks("76"));
    press(Qt::Key_PageUp);
    EXPECT_EQ(row(0), looks("62")) << "the line that stood first stands last";
    turnWheel(60);
    EXPECT_EQ(row(0), looks("62"));
    turnWheel(60);
    EXPECT_EQ(row(0), looks("59"));
    press(Qt::Key_Home);
    EXPECT_EQ(row(0), looks("1"));
    press(Qt::Key_PageDown);
    EXPECT_EQ(row(0), looks("15"));
    press(Qt::Key_End);
    EXPECT_FALSE(view().isShown());
    turnWheel(120);
    EXPECT_TRUE(view().isShown());
    turnWheel(-120);
    EXPECT_FALSE(view().isShown());
}

TEST_F(ScrollBackTest, ATypedKeyReturnsAndTheNextOneCloses) {
    run(hundredLines);
    press(Qt::Key_PageUp);
    press(Qt::Key_Shift);
    EXPECT_TRUE(view().isShown());
    press(Qt::Key_Space);
    EXPECT_FALSE(view().isShown());
    EXPECT_TRUE(console->isVisible());
    press(Qt::Key_PageUp);
    run({"PrintString \"k\""});
    EXPECT_FALSE(view().isShown()) << "another run";
    press(Qt::Key_PageUp);
    EXPECT_FALSE(view().isShown()) << "whose lines are all seen";
    press(Qt::Key_Space);
    EXPECT_FALSE(console->isVisible());
}

TEST_F(ScrollBackTest, TheProgramGoesOnMeanwhile) {
    std::vector<std::string> program = hundredLines;
    program.insert(program.end(), {"Wait 0.05", "PrintString \"a\"", "k = \"\"", "Do While k = \"\"", "k = ReadKey()",
                                   "Loop", "PrintString k", "Wait 0.05", "InputString b", "PrintString b"});
    bool stayed = false;
    bool left = false;
    std::string read;
    console->setTrace([&](std::string_view call) {
        if (call == "PrintString 100") soon([] { press(Qt::Key_PageUp); });
        if (call == "PrintString a")
            once([] { return true; },
                 [&] {
                     stayed = view().isShown();
                     press(Qt::Key_Up);
                     left = !view().isShown();
                     press(Qt::Key_PageUp);
                 });
        if (call != "ReadKey") read = call;
    });
    onceInputIsWanted([this] {
        EXPECT_FALSE(view().isShown()) << "a question is shown";
        press(Qt::Key_PageUp);
        EXPECT_TRUE(view().isShown());
        press(Qt::Key_7);
        EXPECT_EQ(inputBox().text(), QStringLiteral("7")) << "a typed key goes to the answer";
        press(Qt::Key_PageUp);
        press(Qt::Key_F4);
    });
    run(program);
    EXPECT_TRUE(stayed);
    EXPECT_TRUE(left);
    EXPECT_EQ(read, "InputString ");
    EXPECT_FALSE(console->isVisible()) << "stopped";
}

TEST_F(ScrollBackTest, WhatIsSelectedIsCopiedAsUnicode) {
    run({"PrintString \"kml {C++} 12\"", "PrintString \"zoe[I\"", "PrintString \"Aae¦\"", "ClearScreen",
         "PrintString 1"});
    press(Qt::Key_PageUp);
    press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_TRUE(copied().startsWith(QStringLiteral("कमल C++ १२\n"))) << copied().toStdString();
    press(Qt::Key_Home);
    EXPECT_EQ(copied().count(u'\n'), 7) << "three lines, one after them, and the end messages";
}

TEST_F(ScrollBackTest, TheMouseSelectsWholeLettersOnTheDisplay) {
    run({"PrintString \"{abc}\"", std::string("PrintString \"Aael\""), "PrintString \"kml\""});
    const int line = lineHeight();
    drag({5, 5}, {6, 6});
    EXPECT_FALSE(view().isShown()) << "a click";
    drag({4, 5}, {22, line + line / 2});
    EXPECT_TRUE(view().isShown());
    EXPECT_EQ(copied(), QStringLiteral("abc\nओ"));
    press(Qt::Key_Left, Qt::ShiftModifier);
    EXPECT_EQ(copied(), QStringLiteral("abc\n"));
    press(Qt::Key_Down, Qt::ShiftModifier);
    press(Qt::Key_End, Qt::ShiftModifier);
    EXPECT_EQ(copied(), QStringLiteral("abc\nओल\nकमल"));
    EXPECT_EQ(view().Image().pixel(700, 5), look::console::selection.rgb());
    press(Qt::Key_Escape);
    EXPECT_FALSE(view().isShown());
}

TEST_F(ScrollBackTest, AssistiveTechnologyLearnsWhereEachLetterStands) {
    run({R"(PrintString "0 above")", "ClearScreen", R"(PrintString "kmae k{ b} ze5")", "DrawPoint 3, 200",
         R"(PrintString "{Ab} kae")"});
    display().ShowNow();
    EXPECT_EQ(expectLettersWhereDrawn(display()).toStdString(),
              "कमो क b शे५\nAb को\nहे प्रायोजन थांबलेले आहे\nबंद करण्यासाठी कोणतेही बटण दाबा");
    run(hundredLines);
    press(Qt::Key_PageUp);
    const QStringList back = expectLettersWhereDrawn(display()).split(u'\n');
    press(Qt::Key_PageUp);
    EXPECT_EQ(expectLettersWhereDrawn(display()).split(u'\n').last(), back[1])
        << "the line that stood first stands last";
}

TEST(PrintedLines, AreAsManyAsFit) {
    PrintedLines lines;
    for (int i = 0; i < 10'005; ++i) lines.add(std::to_string(i), 0);
    EXPECT_EQ(lines.begin(), 5U);
    EXPECT_EQ(lines.end(), 10'005U);
    EXPECT_EQ(lines[5], "5");
    const std::string megabyte(1 << 20, 'x');
    for (int i = 0; i < 20; ++i) lines.add(megabyte, 0);
    EXPECT_EQ(lines.end() - lines.begin(), 16U);
    lines.clear();
    EXPECT_EQ(lines.end(), 0U);
}

}  // namespace
}  // namespace tolvan
