// Devanagari typed into the Roman pane and into a line: by a keyboard layout, letter by letter, and by input methods.
#include "Panes.h"
#include "editor/panes/DevanagariTyping.h"
#include "platform/devanagariinput/LineEditText.h"
#include "platform/encoding/Unicode.h"
#include "platform/richtext/UnicodeText.h"
#include "platform/transliteration/UnicodeToRoman.h"

#include <QInputMethodEvent>
#include <QLineEdit>
#include <QTextBlock>
#include <QTextLayout>

#include <random>

namespace tolvan {
namespace {

// A key of a layout, which may give several letters.
void strike(QWidget& box, const QString& letters) {
    QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, letters);
    QCoreApplication::sendEvent(&box, &press);
}

void strikeEach(QWidget& box, const QString& letters) {
    for (const QChar letter : letters) {
        if (letter == u'<')
            QTest::keyClick(&box, Qt::Key_Backspace);
        else
            strike(box, letter);
    }
}

void compose(QWidget& box, const QString& preedit, const QString& commit = {}, int from = 0, int length = 0) {
    QInputMethodEvent event(preedit, {});
    event.setCommitString(commit, from, length);
    QCoreApplication::sendEvent(&box, &event);
}

class DevanagariTypingTest : public Panes {
  protected:
    DevanagariTypingTest() { new DevanagariInput(line, std::make_unique<LineEditText>(line, 200)); }

    QString shown() const { return QString::fromStdString(unicodeOf(program.text())); }

    QLineEdit line;
};

TEST_F(DevanagariTypingTest, spellsTheWordAnewWithEachLetter) {
    struct Case {
        const char* before;  // in the box, with the caret behind it
        QString typed;       // "<" is Backspace
        const char* roman;
    };
    const Case cases[] = {
        {"", QStringLiteral("क"), "ka"},
        {"", QStringLiteral("क्ष"), "ksha"},
        {"", QStringLiteral("नमस्कार जग"), "namaskAra jaga"},
        {"", QStringLiteral("क्ष<<ि"), "ki"},
        {"", QStringLiteral("अ = ५"), "a = 5"},
        {"", QStringLiteral("क<"), ""},
        {"", QStringLiteral("क<<अ"), "a"},
        {"x ", QStringLiteral("क<<अ"), "kshaXa"},
        {"nam", QStringLiteral("म"), "namama"},  // the word goes on
        {"dAkhav", QStringLiteral("ा"), "dAkhavA"},
        {"\xA7", QStringLiteral("क"), "\xA7ka"},
        {"#\"# ", QStringLiteral("कख"), "#\"# kakha"},
        {"#ab ", QStringLiteral("कि५"), "#ab #ki5#"},
        {"", QStringLiteral("र्\u200Dय"), "Rya"},
        {"", QStringLiteral("।क॥ॐऽ"), "ka"},
        {"", QStringLiteral("ंक"), "ka"},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.typed.toStdString());
        roman.setText(one.before);
        press(Qt::Key_End, Qt::ControlModifier);
        strikeEach(roman, one.typed);
        EXPECT_EQ(roman.text(), one.roman);
        line.setText(QString::fromLatin1(one.before));
        strikeEach(line, one.typed);
        EXPECT_EQ(line.text(), QString::fromLatin1(one.roman));
    }
    EXPECT_EQ(refused, U"।॥ॐऽं");
}

// However the letters are spread over keys, commits and Backspaces.
TEST_F(DevanagariTypingTest, anySplitIntoEventsIsTheSameWord) {
    const QString word = QStringLiteral("विद्यार्थ्यांनी क्ह ऱ्हस्व अइउ ज़िंदगी ॲप कॉफी श्री द्न्य");
    std::mt19937 random(7);  // NOLINT(bugprone-random-generator-seed): the same splits every time
    for (int round = 0; round < 40; ++round) {
        roman.setText({});
        line.clear();
        for (qsizetype at = 0; at < word.size();) {
            const qsizetype length = std::min<qsizetype>(1 + random() % 4, word.size() - at);
            const QString piece = word.mid(at, length);
            at += length;
            for (QWidget* box : {static_cast<QWidget*>(&roman), static_cast<QWidget*>(&line)}) {
                if (random() % 2 == 0) {
                    compose(*box, piece.left(1));
                    compose(*box, {}, piece);
                } else if (piece.contains(u' ')) {
                    strikeEach(*box, piece);
                } else {
                    strike(*box, piece + u'\u0915');
                    strikeEach(*box, QStringLiteral("<"));
                }
            }
        }
        ASSERT_EQ(roman.text(), romanOfUnicode(word.toStdString())) << round;
        ASSERT_EQ(line.text().toStdString(), roman.text());
        ASSERT_EQ(shown().remove(QChar(0x200C)).trimmed(), word) << round;
    }
}

TEST_F(DevanagariTypingTest, undoTakesWords) {
    roman.setText("a ");
    press(Qt::Key_End);
    strikeEach(roman, QStringLiteral("नम<मस्ते"));
    type(" ");
    strikeEach(roman, QStringLiteral("जग"));
    EXPECT_EQ(roman.text(), "a namaste jaga");
    roman.undo();
    EXPECT_EQ(roman.text(), "a namaste ");
    roman.redo();
    EXPECT_EQ(roman.text(), "a namaste jaga");
    for (int i = 0; i < 3; ++i) roman.undo();
    EXPECT_EQ(roman.text(), "a ");

    line.setText(QStringLiteral("x "));
    strikeEach(line, QStringLiteral("जग"));
    QTest::keyClick(&line, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(line.text(), QStringLiteral("x "));
}

TEST_F(DevanagariTypingTest, theWordEndsWhereTheCaretLeavesIt) {
    strikeEach(roman, QStringLiteral("कमल"));
    press(Qt::Key_Home);
    strikeEach(roman, QStringLiteral("अ<<"));
    EXPECT_EQ(roman.text(), "kamala");
    roman.select(2, 2);
    strikeEach(roman, QStringLiteral("ख"));
    EXPECT_EQ(roman.text(), "kakhala") << "the selection goes";
    roman.setLocked(true);
    strikeEach(roman, QStringLiteral("ग<"));
    EXPECT_EQ(roman.text(), "kakhala");
}

TEST_F(DevanagariTypingTest, showsWhatAnInputMethodHasNotGivenAndTakesItInTime) {
    compose(roman, QStringLiteral("न"));
    EXPECT_EQ(roman.document()->firstBlock().layout()->preeditAreaText(), QStringLiteral("न"));
    EXPECT_EQ(roman.text(), "");
    compose(roman, QStringLiteral("म"), QStringLiteral("न"));
    EXPECT_EQ(roman.text(), "na");
    QTest::mouseClick(roman.viewport(), Qt::LeftButton, {}, {1, 1});
    EXPECT_EQ(roman.text(), "nama") << "a click does not lose it";
    EXPECT_EQ(roman.document()->firstBlock().layout()->preeditAreaText(), QString());
    press(Qt::Key_End);
    compose(roman, QStringLiteral("ग"));
    aids.devanagari().finish();
    EXPECT_EQ(roman.text(), "namaga");
}

TEST_F(DevanagariTypingTest, tellsInputMethodsOfTheWordAsItWasTyped) {
    const auto ask = [&](QWidget& box, Qt::InputMethodQuery query) {
        QInputMethodQueryEvent event(query);
        QCoreApplication::sendEvent(&box, &event);
        return event.value(query);
    };
    for (QWidget* box : {static_cast<QWidget*>(&roman), static_cast<QWidget*>(&line)}) {
        strikeEach(*box, QStringLiteral("क्षम"));
        EXPECT_EQ(ask(*box, Qt::ImSurroundingText).toString(), QStringLiteral("क्षम"));
        EXPECT_EQ(ask(*box, Qt::ImCursorPosition).toInt(), 4);
        EXPECT_TRUE(ask(*box, Qt::ImEnabled).toBool());
        compose(*box, {}, QStringLiteral("ी"), -3, 3);  // in the place of the last three letters
    }
    EXPECT_EQ(roman.text(), "kI");
    EXPECT_EQ(line.text(), QStringLiteral("kI"));
    type(" x");
    EXPECT_EQ(ask(roman, Qt::ImSurroundingText).toString(), QStringLiteral("kI x"));
}

}  // namespace
}  // namespace tolvan
