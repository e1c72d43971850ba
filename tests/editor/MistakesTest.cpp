// Beginners' mistakes made in the window by real keys: what is said about them, and how many keys mend them.

#include "EditorFixture.h"
#include "editor/guide/ProblemPanel.h"
#include "guide/Guide.h"
#include "platform/fonts/FontEncoding.h"
#include "platform/richtext/UnicodeText.h"
#include "platform/transliteration/ReplaceRomanChars.h"
#include "support/Cases.h"

#include <QListWidget>
#include <QPushButton>

#include <cstdlib>
#include <fstream>

namespace tolvan {
namespace {

class MistakesTest : public EditorTest {
  protected:
    MistakesTest() {
        state.SuggestWords = false;  // so that every key is one of the mistake's
        state.PairQuotes = false;
        editor->applyPreferences();
    }
    void typeProgram(std::string written) {
        editor->txtRoman().setText({});
        for (std::size_t at = 0; (at = written.find(" / ", at)) != std::string::npos;) written.replace(at, 3, "\n");
        for (const char c : written)
            if (c == '\n')
                QTest::keyClick(&editor->txtRoman(), Qt::Key_Return);
            else
                QTest::keyClick(&editor->txtRoman(), c);
    }
    QString said() const {
        const auto* list = editor->findChild<QListWidget*>(QStringLiteral("lstProblems"));
        return list->currentItem() == nullptr ? QString() : list->currentItem()->text();
    }
    int count() const { return editor->findChild<QListWidget*>(QStringLiteral("lstProblems"))->count(); }
};

// F8 goes to the mistake, Alt+Enter mends it.
TEST_F(MistakesTest, areExplainedAndMendedByTwoKeys) {
    const char* const table = std::getenv("TOLVAN_MISTAKES_TABLE");
    std::ofstream out(table == nullptr ? "" : table);
    out << "| typed | said | line | keys |\n|---|---|---|---|\n";
    int rows = 0;
    int explained = 0;
    for (const Row& row : rowsOf("guide/mistakes.cases")) {
        typeProgram(row[0]);
        press(Qt::Key_F8);
        const QString text = said();
        const int found = count();
        const int line = editor->txtRoman().currentLine();
        const bool itself = found == 0;  // put right while it was typed
        const bool offered = editor->findChild<QPushButton*>(QStringLiteral("cmdMend"))->isEnabled();
        if (!itself) {
            EXPECT_EQ(std::to_string(line), row[1]) << row;
            EXPECT_EQ(editor->problems().kind(), row[2]) << row;
        }
        press(Qt::Key_Return, Qt::AltModifier);
        const bool mended = !itself && count() < found;
        EXPECT_EQ(mended, offered && !itself) << row << roman();
        ++rows;
        explained += itself || (std::to_string(line) == row[1] && !text.isEmpty()) ? 1 : 0;
        out << "| `" << row.written[0] << "` | " << (itself ? "put right while typed" : text.toStdString()) << " | "
            << row[1] << " | "
            << (itself   ? "0"
                : mended ? "2"
                         : "by hand")
            << " |\n";
    }
    EXPECT_GE(rows, 60);
    EXPECT_GE(explained, 55);
}

// The caret has to leave the line first; what is mended is no longer said.
TEST_F(MistakesTest, areNotMarkedInTheLineThatIsTyped) {
    typeProgram("dakhav 1");
    QTest::qWait(400);
    EXPECT_EQ(count(), 0);
    QTest::keyClick(&editor->txtRoman(), Qt::Key_Return);
    EXPECT_TRUE(QTest::qWaitFor([this] { return count() == 1; }));
    EXPECT_EQ(editor->txtRoman().extraSelections().size(), 1);
    EXPECT_EQ(editor->txtProgram().extraSelections().size(), 1);
    press(Qt::Key_Return, Qt::AltModifier);
    EXPECT_EQ(roman(), "dAkhav 1\r\n");
    EXPECT_EQ(count(), 0);
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(roman(), "dakhav 1\r\n");
    state.ShowProblems = false;
    editor->applyPreferences();
    EXPECT_EQ(count(), 0);
}

// An end is not missed as long as the caret is in its block, unless the program is to run.
TEST_F(MistakesTest, ofABlockWaitUntilItIsLeft) {
    typeProgram("korA / jar 1 lahAn 2 tar / dAkhav 1 / ");
    QTest::qWait(400);
    EXPECT_EQ(count(), 0);
    press(Qt::Key_Home, Qt::ControlModifier);
    EXPECT_EQ(count(), 1);
    press(Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(count(), 0);
    press(Qt::Key_F8);
    EXPECT_EQ(count(), 1);
    typeProgram("jovar 1 = 2 / jar 1 lahAn 2 tar / dAkhav 1 / kar");
    for (int line = 0; line < 2; ++line) press(Qt::Key_Up);
    QTest::qWait(400);
    EXPECT_EQ(count(), 0);
    press(Qt::Key_Up);
    press(Qt::Key_Up);
    EXPECT_EQ(count(), 1);
}

// One key goes on, one mends; none is passed over.
TEST_F(MistakesTest, areMendedOneAfterTheOther) {
    typeProgram("dakhav 1 / kora / dakhav 2 / ghe / ");
    for (const int line : {1, 2, 3, 4, 1, 2, 3, 4}) {
        press(Qt::Key_F8);
        EXPECT_EQ(editor->txtRoman().currentLine(), line);
    }
    for (int mended = 0; mended < 3; ++mended) {
        press(Qt::Key_F8);
        EXPECT_EQ(editor->txtRoman().currentLine(), mended + 1);
        press(Qt::Key_Return, Qt::AltModifier);
    }
    EXPECT_EQ(roman(), "dAkhav 1\r\nkorA\r\ndAkhav 2\r\nghe\r\n");
    press(Qt::Key_F8);
    EXPECT_EQ(editor->txtRoman().currentLine(), 4);
}

// Both words that may be meant have a button; the letters that differ are bold.
TEST_F(MistakesTest, withTwoCorrectionsHaveTwoButtons) {
    auto* const other = editor->findChild<QPushButton*>(QStringLiteral("cmdMendOther"));
    for (const bool takesOther : {false, true}) {
        typeProgram("bAl = 1 / baL = 2 / dAkhav bal ");
        press(Qt::Key_F8);
        ASSERT_EQ(count(), 1) << said().toStdString();
        EXPECT_TRUE(other->isVisible());
        QTest::mouseClick(takesOther ? other : editor->findChild<QPushButton*>(QStringLiteral("cmdMend")),
                          Qt::LeftButton);
        EXPECT_EQ(roman(), std::string("bAl = 1\r\nbaL = 2\r\ndAkhav ") + (takesOther ? "baL " : "bAl "));
        EXPECT_EQ(count(), 0);
        EXPECT_FALSE(other->isVisible());
    }
}

TEST_F(MistakesTest, areExplainedByTheirTopicOfTheHelp) {
    QString opened;
    services.showHelp = [&](const QString&, const QString& topic) {
        opened = topic;
        return true;
    };
    open();
    editor->setHelpFile(QStringLiteral("help"));
    typeProgram("dakhav 1 / ");
    press(Qt::Key_F1);
    EXPECT_EQ(opened, QString());
    press(Qt::Key_F8);
    press(Qt::Key_F1);
    EXPECT_EQ(opened, toQString(LineConvert("shabd chukalA")));
}

TEST_F(MistakesTest, ofAVowelsLengthOrANasalMendThemselves) {
    const struct {
        const char* typed;
        const char* text;
    } cases[] = {
        {"sampav jar", "saMpav jar"},
        {"sUchanA a", "suchanA a"},
        {"thAmmb\n", "thAMb\r\n"},
        {"thAmb\n", "thAMb\r\n"},
        {"dAkhav #\"#sampav jar", "dAkhav #\"#sampav jar"},
        {"suchanA sampav jar", "suchanA sampav jar"},
        {"sampav = 5\ndAkhav sampav \n", "saMpav = 5\r\ndAkhav saMpav \r\n"},
        {"kora ", "kora "},
    };
    for (const auto& [typed, text] : cases) {
        typeProgram(typed);
        EXPECT_EQ(roman(), text);
    }
    typeProgram("sampav ");
    EXPECT_EQ(roman(), "saMpav ");
    press(Qt::Key_Backspace);
    EXPECT_EQ(roman(), "sampav ");
    press(Qt::Key_Backspace);
    QTest::keyClicks(&editor->txtRoman(), QStringLiteral(" = 1 "));
    EXPECT_EQ(roman(), "sampav = 1 ");
}

}  // namespace
}  // namespace tolvan
