#include "Panes.h"

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QMimeData>
#include <QSignalSpy>
#include <QTextBlock>
#include <QUrl>

namespace tolvan {
namespace {

using RomanBoxTest = Panes;

std::string everyByte() {
    std::string bytes;
    for (int code = 0; code < 256; ++code) bytes += static_cast<char>(code);
    return bytes;
}

TEST_F(RomanBoxTest, countsPlacesInBytes) {
    roman.setText("ab\r\n\r\ncde");
    struct Case {
        std::size_t start, length;
        std::size_t expectedStart, expectedLength;
        int line;
        const char* selected;
    };
    const Case cases[] = {
        {0, 0, 0, 0, 1, ""},
        {0, 4, 0, 4, 2, "ab\r\n"},
        {1, 3, 1, 3, 2, "b\r\n"},
        {0, 3, 0, 2, 1, "ab"},
        {4, 2, 4, 2, 3, "\r\n"},
        {6, 3, 6, 3, 3, "cde"},
        {7, 1000000, 7, 2, 3, "de"},
        {9, 1, 9, 0, 3, ""},
        {100, 1, 9, 0, 3, ""},
        {0, 9, 0, 9, 3, "ab\r\n\r\ncde"},
        {1, std::string::npos, 1, 8, 3, "b\r\n\r\ncde"},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(testing::Message() << one.start << ", " << one.length);
        roman.select(one.start, one.length);
        EXPECT_EQ(roman.selectionStart(), one.expectedStart);
        EXPECT_EQ(roman.selectionLength(), one.expectedLength);
        EXPECT_EQ(roman.currentLine(), one.line);
        EXPECT_EQ(roman.selectedText(), one.selected);
    }
}

TEST_F(RomanBoxTest, takesKeysAndComposedCharactersThatHaveACode) {
    for (const char32_t typed : U"\u00E9\u2013\u0995\U0001F600") {  // the last two have no code
        if (typed == 0) continue;
        QKeyEvent key(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, QString::fromUcs4(&typed, 1));
        QApplication::sendEvent(&roman, &key);
    }
    for (const char32_t committed : U"\u00E0\u0996") {
        if (committed == 0) continue;
        QInputMethodEvent composed;
        composed.setCommitString(QString::fromUcs4(&committed, 1));
        QApplication::sendEvent(&roman, &composed);
    }
    EXPECT_EQ(roman.text(), "\xE9-\xE0");
    EXPECT_EQ(refused, U"\u0995\U0001F600\u0996");
}

TEST_F(RomanBoxTest, pastes) {
    struct Case {
        const char* what;
        QString pasted;
        std::string expected;
        std::u32string expectedRefused;
    };
    const Case cases[] = {
        {"line ends of every kind", QStringLiteral("a\nb\r\nc\rd\u2028e\u2029f"), "12a\r\nb\r\nc\r\nd\r\ne\r\nf", U""},
        {"tabs to the next sixth column", QStringLiteral("\tx\n\ty\t\tz"), "12    x\r\n      y           z", U""},
        {"quotes and dashes of a word processor",
         QStringLiteral("\u201Cka\u201D \u2013 #\u201E\u2019# 1\u00A0\u2014\u2026"), "12#\"#ka#\"# - #\"'# 1 -...",
         U""},
        {"letters of windows-1252", QStringLiteral("\u0192\u00EA\u0153"), "12\x83\xEA\x9C", U""},
        {"a text without its letters from elsewhere", QStringLiteral("kamal\nক and খক"), "12kamal\r\n and ", U"কখ"},
        {"Devanagari", QStringLiteral("दाखव \"हो\"\nkamal"), "12dAkhav #\"#ho#\"#\r\nkamal", U""},
        {"control codes", QStringLiteral("a") + QChar(1) + QChar(0x81), "12a\x01\x81", U""},
        {"nothing", QString(), "12", U""},
    };
    for (const Case& one : cases) {
        roman.setText("12");
        roman.select(2, 0);
        refused.clear();
        putOnClipboard(one.pasted);
        press(Qt::Key_V, Qt::ControlModifier);
        EXPECT_EQ(roman.text(), one.expected) << one.what;
        EXPECT_EQ(refused, one.expectedRefused) << one.what;
        if (roman.text() != "12") {
            press(Qt::Key_Z, Qt::ControlModifier);
            EXPECT_EQ(roman.text(), "12") << one.what << ": one step";
        }
    }
}

TEST_F(RomanBoxTest, pastesTheStartOfAHugeText) {
    bool toldSo = false;
    QObject::connect(&roman, &RomanBox::pastedInPart, [&] { toldSo = true; });
    putOnClipboard((QString(998, u'k') + u'\n').repeated(2000));
    press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(roman.text().size(), 1001U * 1000) << "in whole lines";
    EXPECT_TRUE(toldSo);
}

TEST_F(RomanBoxTest, cutsAndCopiesWhatCanBePastedAgain) {
    const std::string text = everyByte() + "\r\nka";
    roman.setText(text);
    press(Qt::Key_A, Qt::ControlModifier);
    press(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(roman.text(), "");
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(roman.text(), text);
    press(Qt::Key_Y, Qt::ControlModifier);
    press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(roman.text(), "");
    press(Qt::Key_V, Qt::ControlModifier);
    std::string expected = everyByte();  // but for the line ends and the tab in it
    expected.replace(13, 1, "\r\n").replace(10, 1, "\r\n").replace(9, 1, "   ");
    EXPECT_EQ(roman.text(), expected + "\r\nka");

    roman.select(0, 0);
    press(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(clipboardText(), QString()) << "without a selection, an empty text";
    EXPECT_EQ(roman.text(), expected + "\r\nka");
}

TEST_F(RomanBoxTest, replacesItsTextInOneStep) {
    roman.setText("a\r\nb\r\nc\r\nd");
    roman.select(4, 0);
    QSignalSpy changes(&roman, &RomanBox::textChanged);
    roman.replaceText("a\r\nb\r\nc\r\nd");
    EXPECT_EQ(changes.size(), 0);
    EXPECT_FALSE(roman.document()->isUndoAvailable());

    for (const char* text : {"a\r\n      b\r\n      c\r\nd", "", "x", "xx", "a\r\nb\r\na\r\nb\r\nc"}) {
        const std::string before = roman.text();
        roman.replaceText(text);
        EXPECT_EQ(roman.text(), text);
        roman.undo();
        EXPECT_EQ(roman.text(), before);
        roman.redo();
        EXPECT_EQ(roman.text(), text);
    }
    EXPECT_EQ(changes.size(), 15);
    press(Qt::Key_End, Qt::ControlModifier);
    type("x");
    roman.undo();
    EXPECT_EQ(roman.text(), "a\r\nb\r\na\r\nb\r\nc") << "what is typed next is another step";

    roman.setText("a\r\nb");
    roman.select(4, 0);
    roman.replaceText("      a\r\n      b");
    EXPECT_EQ(roman.caret(), 16U) << "the caret stays after its letter";
}

TEST_F(RomanBoxTest, canBeLocked) {
    roman.setText("ka\r\nkha\r\n");
    press(Qt::Key_End, Qt::ControlModifier);
    type("ga");
    roman.select(0, 2);
    roman.setLocked(true);
    type("x\"");
    putOnClipboard(QStringLiteral("y"));
    for (const int key : {Qt::Key_V, Qt::Key_X, Qt::Key_Z, Qt::Key_Space}) press(key, Qt::ControlModifier);
    press(Qt::Key_Tab);
    press(Qt::Key_Delete);
    roman.replaceText("z");
    roman.replaceSelection("z");
    roman.undo();
    EXPECT_EQ(roman.text(), "ka\r\nkha\r\nga");
    EXPECT_FALSE(aids.completion().isOpen());

    roman.select(4, 3);
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(clipboardText(), QStringLiteral("kha"));
    roman.setLocked(false);
    type("x");
    EXPECT_EQ(roman.text(), "ka\r\nx\r\nga");
}

class DropTest : public RomanBoxTest {
  protected:
    // Whether the box takes it.
    bool drop(QMimeData& dropped, QPoint where) {
        QDragEnterEvent enter(where, Qt::CopyAction, &dropped, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(roman.viewport(), &enter);
        if (!enter.isAccepted()) return false;
        QDropEvent event(where, Qt::CopyAction, &dropped, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(roman.viewport(), &event);
        return event.isAccepted();
    }
};

TEST_F(DropTest, insertsTextAtTheDropPoint) {
    roman.setText("abcd\r\nefgh");
    const int letter = roman.cursorRect(roman.textCursor()).left() + roman.fontMetrics().horizontalAdvance(u'a') * 2;
    QMimeData text;
    text.setText(QStringLiteral("X\tY"));
    EXPECT_TRUE(drop(text, place(roman, letter, 1, 0.95)));
    EXPECT_EQ(roman.text(), "abcd\r\nefX   Ygh");
    roman.undo();
    EXPECT_EQ(roman.text(), "abcd\r\nefgh");

    QMimeData rich;
    rich.setData(QStringLiteral("text/rtf"), R"({\rtf1\ansi{\fonttbl{\f0 Times New Roman;}}\f0 R\par S})");
    EXPECT_TRUE(drop(rich, place(roman, letter, 0, 0.05)));
    EXPECT_EQ(roman.text(), "abR\r\nScd\r\nefgh");

    QMimeData letters;
    letters.setText(QStringLiteral("ক"));
    drop(letters, place(roman, letter, 0, 0.5));
    EXPECT_EQ(refused, U"ক");

    QMimeData files;
    files.setUrls({QUrl::fromLocalFile(QStringLiteral("/a.tvp"))});
    EXPECT_FALSE(drop(files, place(roman, letter, 0, 0.5))) << "the window's";
    QMimeData picture;
    picture.setData(QStringLiteral("image/png"), "x");
    EXPECT_FALSE(drop(picture, place(roman, letter, 0, 0.5)));
    EXPECT_EQ(roman.text(), "abR\r\nScd\r\nefgh");
}

TEST_F(RomanBoxTest, takesClicksInTheWholeHeightOfALine) {
    roman.setText("abcd\r\nefgh\r\nij");
    const int letter = roman.cursorRect(roman.textCursor()).left() + roman.fontMetrics().horizontalAdvance(u'a') * 2;
    for (const double depth : {0.04, 0.5, 0.96}) {
        QTest::mouseClick(roman.viewport(), Qt::LeftButton, Qt::NoModifier, place(roman, letter, 1, depth));
        EXPECT_EQ(roman.caret(), 8U) << depth;
        QTest::mouseClick(roman.viewport(), Qt::LeftButton, Qt::NoModifier, place(roman, letter, 0, depth));
        EXPECT_EQ(roman.caret(), 2U) << depth;
    }
    QTest::mouseDClick(roman.viewport(), Qt::LeftButton, Qt::NoModifier, place(roman, letter, 0, 0.9));
    EXPECT_EQ(roman.selectedText(), "abcd");
}

}  // namespace
}  // namespace tolvan
