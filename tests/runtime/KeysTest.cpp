// Keys that a program reads while it runs, and pauses.
#include "ConsoleFixture.h"
#include "platform/encoding/Deva.h"

#include <QElapsedTimer>

namespace tolvan {
namespace {

class KeysTest : public ConsoleTest {
  protected:
    // Presses keys while a program waits, and gives what it read, each key followed by a blank.
    std::string keysRead(std::function<void()> press) {
        std::string read;
        console->setTrace([&read](std::string_view call) { read = call; });
        soon(std::move(press));
        run({"Wait 0.1", "Do", "k = ReadKey()", "s = s & k & \" \"", "Loop Until k = \"\"", "PrintString s"});
        return read;
    }
    void press(int key, const char* text = "", bool held = false) {
        QKeyEvent event(QEvent::KeyPress, key, {}, QString::fromLatin1(text), held);
        QApplication::sendEvent(&display(), &event);
    }
};

TEST_F(KeysTest, AreReadInTheirOrder) {
    const std::string read = keysRead([this] {
        QTest::keyClicks(&display(), QStringLiteral("a5+{"));
        for (const int key : {Qt::Key_Up, Qt::Key_Down, Qt::Key_Left, Qt::Key_Right, Qt::Key_Return, Qt::Key_Space})
            QTest::keyClick(&display(), static_cast<Qt::Key>(key));
        for (const int key : {Qt::Key_Shift, Qt::Key_F1, Qt::Key_PageUp, Qt::Key_Escape})
            QTest::keyClick(&display(), static_cast<Qt::Key>(key));
        QTest::keyClick(&display(), Qt::Key_B, Qt::ControlModifier);
    });
    EXPECT_EQ(read, "PrintString {a} 5 {+} {\\{} vr oalI favI %jvI @<qr jaga  "_deva);
}

// A conjunct may be on one key. A sign of a consonant's vowel is that vowel; other signs are no letters.
TEST_F(KeysTest, OfADevanagariKeyboardAreItsLetters) {
    const std::string read = keysRead([this] {
        for (const char* text : {"क", "ळ", "श्र", "ा", "५", "्", "ं"}) {
            QKeyEvent event(QEvent::KeyPress, 0, {}, QString::fromUtf8(text));
            QApplication::sendEvent(&display(), &event);
        }
    });
    EXPECT_EQ(read, "PrintString k ¦ ï Aa 5  "_deva);
}

TEST_F(KeysTest, AHeldKeyCountsIfItWasPressedForTheProgram) {
    EXPECT_EQ(keysRead([this] {
                  press(Qt::Key_X, "x", true);
                  press(Qt::Key_A, "a");
                  press(Qt::Key_A, "a", true);
              }),
              "PrintString {a} {a}  ");
}

TEST_F(KeysTest, OfAnEarlierRunAreForgotten) {
    soon([this] { QTest::keyClick(&display(), Qt::Key_A); });
    run({"Wait 0.05"});
    EXPECT_EQ(keysRead([] {}), "PrintString  ");
}

TEST_F(KeysTest, AWaitTakesItsTimeAndEndsAtAStop) {
    QElapsedTimer clock;
    clock.start();
    run({"Wait -1", "Wait 0", "Wait 0.05", "PrintString \"k\""});
    EXPECT_GE(clock.elapsed(), 50);
    EXPECT_EQ(picture(), printed(withEnd({"k"})));
    soon([this] { QTest::keyClick(&display(), Qt::Key_F4); });
    run({"Wait 1E300"});
    EXPECT_FALSE(state.IsRunning());
}

}  // namespace
}  // namespace tolvan
