// Lines that are typed for a program, keys that it reads while it runs, and pauses.
#include "ConsoleFixture.h"
#include "platform/encoding/Deva.h"

#include <QClipboard>
#include <QElapsedTimer>

namespace tolvan {
namespace {

class InputTest : public ConsoleTest {
  protected:
    InputTest() {
        console->ClearScreen();
        EXPECT_TRUE(state.begin());
    }

    // The answer to one question, with what is done once the box is up.
    std::optional<std::string> ask(std::function<void()> action) {
        onceInputIsWanted(std::move(action));
        return console->InputString();
    }
    void type(const char* text) { QTest::keyClicks(QApplication::focusWidget(), QLatin1String(text)); }
    std::optional<std::string> answerWith(const std::string& typed) {
        return ask([this, typed] {
            type(typed.c_str());
            enter();
        });
    }
    void enter() { QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return); }
};

TEST_F(InputTest, WhatIsTypedIsTheAnswer) {
    struct {
        const char* typed;
        std::string_view answer;
    } const cases[] = {
        {"", ""}, {"5", "5"}, {"-5", "{-}5"}, {"kamal", "kml"_deva}, {"#BASIC#", "{BASIC}"}, {"#a{b#", "{a\\{b}"}};
    for (const auto& [typed, answer] : cases) {
        EXPECT_EQ(answerWith(typed), answer) << typed;
        EXPECT_FALSE(inputBox().isVisible());
        EXPECT_FALSE(tip().isVisible());
        EXPECT_TRUE(display().hasFocus());
    }
}

TEST_F(InputTest, TheAnswerStandsOnItsLine) {
    console->PrintString("nav");
    display().Box(10, display().CurrentY, 700, display().CurrentY + 20, Qt::red, PictureBox::FillStyle::Solid);
    display().CurrentX = 0;
    display().CurrentY -= 20;
    answerWith("kamal 1");
    console->PrintString("v");
    EXPECT_EQ(picture(), printed({"nav", "kml 1", "v"}));
}

TEST_F(InputTest, TheTipShowsWhatTheLettersMean) {
    ask([this] {
        const QImage empty = tip().Image();
        const int emptyWidth = inputBox().width();
        type("kamal");
        EXPECT_GT(tip().width(), empty.width());
        EXPECT_EQ(tip().Image().copy(0, 0, empty.width() - 8, empty.height()),
                  empty.copy(0, 0, empty.width() - 8, empty.height()));
        EXPECT_GT(inputBox().width(), emptyWidth);
        const int typedWidth = tip().width();
        QTest::keyClick(&inputBox(), Qt::Key_Backspace);
        QTest::keyClick(&inputBox(), Qt::Key_Backspace);
        EXPECT_LT(tip().width(), typedWidth);
        enter();
    });
}

TEST_F(InputTest, TheBoxHasRoomForWhatIsBeingComposed) {
    ask([this] {
        const QString letters = QStringLiteral("सर्वांना नमस्कार");
        QInputMethodEvent composing(letters, {});
        QCoreApplication::sendEvent(&inputBox(), &composing);
        EXPECT_GT(inputBox().width(), inputBox().fontMetrics().horizontalAdvance(letters));
        enter();
    });
}

TEST_F(InputTest, AtTheBottomTheQuestionAboveStaysReadable) {
    for (int i = 0; i < 30; ++i) console->PrintString(std::to_string(i));
    const int line = static_cast<int>(ConsoleText(display()).LineHeight());
    const int bottom = display().height() - 2 * line;
    const QImage before = picture();
    ask([&] {
        EXPECT_EQ(tip().y(), bottom);
        EXPECT_GE(inputBox().y(), bottom + line);
        EXPECT_LE(inputBox().geometry().bottom(), display().height());
        EXPECT_EQ(picture().copy(0, 0, 800, bottom), before.copy(0, 2 * line, 800, bottom));
        enter();
    });
    ask([&] {
        EXPECT_EQ(tip().y(), bottom) << "where both fit exactly";
        enter();
    });
}

TEST_F(InputTest, StaysVisibleWhenTheWindowShrinks) {
    display().CurrentY = 400;
    const auto answer = ask([this] {
        console->resize(500, 300);
        soon([this] {
            EXPECT_LE(tip().geometry().bottom(), display().height());
            EXPECT_TRUE(display().rect().contains(inputBox().geometry()));
            type("7");
            enter();
        });
    });
    EXPECT_EQ(answer, "7");
}

TEST_F(InputTest, Above200CharactersNoKeyIsTaken) {
    bool entered = true;
    const auto answer = ask([this, &entered] {
        type(std::string(200, 'a').c_str());
        EXPECT_EQ(inputBox().text().size(), 200);
        QTest::keyClick(&inputBox(), Qt::Key_Backspace);
        type("bc");
        EXPECT_EQ(inputBox().text().size(), 201) << "the one beyond is still taken";
        type("d");
        enter();
        QTest::keyClick(&inputBox(), Qt::Key_Backspace);
        EXPECT_EQ(inputBox().text().size(), 201);
        entered = !inputBox().isVisible();
        QTest::keyClick(&inputBox(), Qt::Key_F4);
    });
    EXPECT_FALSE(entered);
    EXPECT_EQ(answer, std::nullopt);
    state.end();
    EXPECT_TRUE(state.begin());
    EXPECT_EQ(answerWith(std::string(200, '1')), std::string(200, '1')) << "with 200 it can be entered";
}

TEST_F(InputTest, DeleteIsTakenAbove200Characters) {
    ask([this] {
        type(std::string(201, 'a').c_str());
        EXPECT_TRUE(note().isVisible()) << "which says so";
        EXPECT_TRUE(display().rect().contains(note().geometry()));
        inputBox().home(false);
        QKeyEvent press(QEvent::KeyPress, Qt::Key_Delete, {}, QStringLiteral("\x7f"));  // as some systems send it
        QApplication::sendEvent(&inputBox(), &press);
        QApplication::sendEvent(&inputBox(), &press);
        EXPECT_EQ(inputBox().text().size(), 199);
        EXPECT_FALSE(note().isVisible());
        enter();
    });
    EXPECT_FALSE(inputBox().isVisible());
}

TEST_F(InputTest, WhatIsPastedIsCutToWhatFits) {
    QApplication::clipboard()->setText(QString(300, u'p'));
    const auto answer = ask([this] {
        type("12");
        QTest::keyClick(&inputBox(), Qt::Key_Left);
        QTest::keyClick(&inputBox(), Qt::Key_V, Qt::ControlModifier);
        EXPECT_EQ(inputBox().text(), u'1' + QString(198, u'p') + u'2');
        EXPECT_EQ(inputBox().cursorPosition(), 199);
        QApplication::processEvents();
        EXPECT_TRUE(note().isVisible());
        enter();
    });
    EXPECT_FALSE(note().isVisible());
    EXPECT_TRUE(answer.has_value()) << "it can be entered";
}

TEST_F(InputTest, CtrlCCopiesASelection) {
    EXPECT_EQ(ask([this] {
                  type("123");
                  inputBox().setSelection(1, 2);
                  QTest::keyClick(&inputBox(), Qt::Key_C, Qt::ControlModifier);
                  enter();
              }),
              "123");
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("23"));
}

TEST_F(InputTest, CharactersWithoutACodeAreNotTaken) {
    const auto answer = ask([this] {
        inputBox().insert(QStringLiteral("1\u0915\U0001F6002"));
        EXPECT_EQ(inputBox().text(), QStringLiteral("12"));
        enter();
    });
    EXPECT_EQ(answer, "12");
}

TEST_F(InputTest, AStoppedInputLeavesTheVariable) {
    state.end();
    onceInputIsWanted([this] {
        type("kamal");
        QTest::keyClick(&inputBox(), Qt::Key_C, Qt::ControlModifier);
    });
    run({"a = \"before\"", "InputString a", "PrintString a"});
    EXPECT_FALSE(console->isVisible());
    EXPECT_EQ(editor.programSelections, std::vector<Span>({{7, 4}}));
}

TEST_F(InputTest, AClickBesideTheBoxLeavesItTheKeyboard) {
    ask([this] {
        QTest::mouseClick(&display(), Qt::LeftButton, {}, QPoint(300, 300));
        EXPECT_TRUE(inputBox().hasFocus());
        QTest::mouseClick(&tip(), Qt::LeftButton);
        EXPECT_TRUE(inputBox().hasFocus());
        console->setFocus();
        EXPECT_TRUE(inputBox().hasFocus());
        enter();
    });
}

TEST_F(InputTest, TakesTheKeyboardBackOnlyAfterTheAboutBox) {
    QLineEdit other(console.get());
    other.show();
    const auto keepsFocus = [this, &other] {
        other.setFocus();
        QApplication::processEvents();
        return inputBox().hasFocus();
    };
    ask([&] {
        EXPECT_FALSE(keepsFocus());
        inputBox().setFocus();
        enter();
    });
    onceDialogIsUp([this](QDialog& about) {
        EXPECT_FALSE(console->KeepInputFocus());
        about.close();
    });
    console->ShowAbout();
    EXPECT_TRUE(console->KeepInputFocus());
    QApplication::setActiveWindow(console.get());
    ask([&] {
        EXPECT_TRUE(keepsFocus());
        enter();
    });
}

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
