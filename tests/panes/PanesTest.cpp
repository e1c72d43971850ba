// The two panes together, and the lines that stand in them.
#include "Panes.h"
#include "editor/panes/ProgramLines.h"
#include "translator/ProgramText.h"

#include <QAccessible>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextLayout>
#include <QWheelEvent>

#include <gmock/gmock.h>
#include <random>

namespace tolvan {
namespace {

// The program text as one who only sees the updates has it.
class Follower {
  public:
    void follow(const std::vector<ProgramLinesUpdate>& updates) {
        for (const ProgramLinesUpdate& update : updates) {
            const auto first = lines_.begin() + static_cast<std::ptrdiff_t>(update.first);
            const auto behind = lines_.erase(first, first + static_cast<std::ptrdiff_t>(update.removed));
            lines_.insert(behind, update.lines.begin(), update.lines.end());
            made_ += update.lines.size();
        }
    }
    StyledText text() const {
        StyledText text;
        for (std::size_t i = 0; i < lines_.size(); ++i) {
            text.append(lines_[i].text);
            if (i + 1 < lines_.size()) text.append("\r\n", lines_[i].lineEnd);
        }
        return text;
    }
    std::size_t takeMade() { return std::exchange(made_, 0); }

  private:
    std::vector<ProgramLine> lines_{1};
    std::size_t made_ = 0;
};

std::string romanOf(const ProgramLines& lines) {
    std::string roman = lines.roman(0);
    for (std::size_t i = 1; i < lines.count(); ++i) roman += "\r\n" + lines.roman(i);
    return roman;
}

TEST(ProgramLines, makesOnlyWhatReadsDifferently) {
    ProgramLines lines;
    Follower follower;
    follower.follow(lines.replace(0, 1, std::vector<std::string>(1000, "dAkhav #\"#ka#\"#")));
    follower.takeMade();

    struct Case {
        const char* what;
        std::size_t line;
        std::vector<std::string> roman;
        std::size_t made;
    };
    const Case cases[] = {
        {"a letter", 500, {"dAkhav #\"#kA#\"#"}, 1},
        {"a new line", 500, {"dAkhav", "#\"#kA#\"#"}, 2},
        {"a mark without partner is dropped", 1000, {"dAkhav #\"#ka#\"##"}, 1},
        {"a mark before others turns the lines behind it", 990, {"# dAkhav"}, 11},
        {"and back", 990, {"dAkhav"}, 11},
        {"a line behind the last takes the two blanks over", 1000, {"dAkhav #\"#ka#\"#", "tar"}, 2},
    };
    for (const Case& one : cases) {
        follower.follow(lines.replace(one.line, 1, one.roman));
        EXPECT_EQ(follower.takeMade(), one.made) << one.what;
        EXPECT_EQ(follower.text(), ProgramText(romanOf(lines))) << one.what;
    }
}

TEST(ProgramLines, knowsWhatIsTypedIntoASpan) {
    ProgramLines lines;
    lines.replace(0, 1, {"ka #\"#ma#", "na\"# ta", "# ka", "ka"});
    EXPECT_FALSE(lines.isInSpan(0, 3));
    EXPECT_TRUE(lines.isInSpan(0, 4));
    EXPECT_FALSE(lines.isInSpan(0, 7));
    EXPECT_TRUE(lines.isInSpan(1, 0));
    EXPECT_FALSE(lines.isInSpan(1, 5));
    EXPECT_TRUE(lines.isInSpan(2, 1)) << "about to be closed";
    EXPECT_FALSE(lines.isInSpan(3, 1)) << "forgotten on a line above";
}

TEST(ProgramLines, knowsWhichPlacesCorrespond) {
    ProgramLines lines;
    lines.replace(0, 1, {"dAkhav #\"#nAv#\"# & 1", "#x y# kartA", "#a", "b# kar#"});
    struct Case {
        const char* what;
        std::size_t line, roman, program;
    };
    const Case cases[] = {
        {"start", 0, 0, 0},
        {"behind a word", 0, 6, 4},
        {"before a span", 0, 7, 5},
        {"behind a quote, where Devanagari letters go", 0, 10, 6},
        {"behind the letters", 0, 13, 9},
        {"end", 0, 20, 14},
        {"before a span at the start", 1, 0, 0},
        {"in a span", 1, 2, 1},
        {"behind a span", 1, 5, 3},
        {"behind a span from the line above", 3, 2, 1},
        {"before a mark that is dropped", 3, 6, 4},
    };
    for (const auto& [what, line, roman, program] : cases) {
        EXPECT_EQ(lines.programColumn(line, roman), program) << what;
        EXPECT_EQ(lines.romanColumn(line, program), roman) << what;
    }
}

using PanesTest = Panes;

TEST(RomanInput, followsRandomEdits) {
#if defined(__SANITIZE_ADDRESS__)
    constexpr int edits = 5'000;
#else
    constexpr int edits = 100'000;
#endif
    const std::vector<std::string> pieces = {"#",
                                             "\"#\"",
                                             "ka",
                                             "kha ga",
                                             " ",
                                             "\r\n",
                                             "\r\n#",
                                             "(1)",
                                             "#\"#maj#\"#\r\nkur",
                                             "\n",
                                             "dAkhav kamal\r\nANi # adhik\r\n\r\nuttar",
                                             "\xE9"};
    std::mt19937 random(7);
    const auto below = [&](std::size_t limit) {
        return std::uniform_int_distribution<std::size_t>(0, limit - 1)(random);
    };
    RomanBox roman;
    ProgramBox program;
    RomanInput input(roman, program);
    for (int edit = 0; edit < edits; ++edit) {
        if (edit % 2000 == 0) roman.setText("dAkhav #\"#namaskAr#\"#");
        const std::size_t size = roman.textSize();
        const std::size_t start = below(size + 1);
        switch (below(8)) {
            case 0:
            case 1:
                roman.undo();
                break;
            case 2:
                roman.redo();
                break;
            case 3:
                roman.select(start, below(size > 300 ? size : 12));
                roman.replaceSelection("");
                break;
            case 4:
                roman.replaceText(roman.text() + pieces[below(pieces.size())]);
                break;
            default:
                roman.select(start, below(3));
                roman.replaceSelection(pieces[below(pieces.size())]);
        }
        if (edit % 10 != 0) continue;
        ASSERT_EQ(program.text(), ProgramText(roman.text())) << "edit " << edit << ": " << roman.text();
    }
}

// What the pane really shows, read back from its document.
StyledText shownText(const ProgramBox& program) {
    StyledText shown;
    for (QTextBlock block = program.document()->begin(); block.isValid(); block = block.next()) {
        std::vector<Font> fonts(static_cast<std::size_t>(block.length() - 1), Font::Devanagari);
        for (const auto& range : block.layout()->formats())
            if (range.format.hasProperty(QTextFormat::FontFamilies))
                std::fill_n(fonts.begin() + range.start, range.length, Font::Latin);
        for (int i = 0; i + 1 < block.length(); ++i)
            shown.append(block.text()[i].toLatin1() == 0 ? "?" : std::string(1, block.text()[i].toLatin1()),
                         fonts[static_cast<std::size_t>(i)]);
        if (block.next().isValid()) shown.append("\r\n", Font::Devanagari);
    }
    return shown;
}

TEST_F(PanesTest, showTheProgramInItsFonts) {
    type("dAkhav (1) ");
    press(Qt::Key_Return);
    type("tar #x = 1");
    press(Qt::Key_Return);
    EXPECT_EQ(shownText(program), ProgramText(roman.text()));
    type("y# kar");
    EXPECT_EQ(program.text(), ProgramText(roman.text()));
    EXPECT_EQ(shownText(program).text(), program.text().text());
    EXPECT_EQ(shownText(program).font(program.text().text().find("y")), Font::Latin);
    EXPECT_EQ(shownText(program).font(program.text().text().find("kr")), Font::Devanagari);

    program.select(0, 4);
    EXPECT_EQ(program.textCursor().selectedText(), QStringLiteral("daov"));
    program.setFocus();
    QTest::keyClick(&program, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(clipboardText(), QStringLiteral("दाखव"));
    QTest::keyClick(&program, Qt::Key_X);
    EXPECT_EQ(program.text(), ProgramText(roman.text())) << "it is only read";
}

TEST_F(PanesTest, showAShortLineFromItsStart) {
    type("abc");
    press(Qt::Key_Home);
    press(Qt::Key_Return);
    press(Qt::Key_Up);
    type(std::string(300, 'k').c_str());
    EXPECT_GT(program.horizontalScrollBar()->value(), 0);
    press(Qt::Key_Down);
    EXPECT_EQ(program.horizontalScrollBar()->value(), 0);
}

TEST_F(PanesTest, takeLargeTexts) {
    std::string line;
    while (line.size() < 100'000) line += "saMkhyA adhik (#x#) ";
    std::string text;
    while (text.size() < 1'000'000) text += "dAkhav #\"#namaskAr#\"#, 12\r\n";
    for (const std::string& large : {line, text, std::string(100'000, 'k'), std::string(100'000, '#')}) {
        roman.setText(large);
        press(Qt::Key_End, Qt::ControlModifier);
        type("k");
        EXPECT_EQ(roman.text(), large + "k");
        EXPECT_EQ(program.text(), ProgramText(large + "k"));
        window.grab();
    }
}

std::string lines(int count) {
    std::string text;
    for (int line = 0; line < count; ++line) text += "dAkhav\r\n";
    return text;
}

TEST_F(PanesTest, scrollTogether) {
    std::string wide;  // wider than one of the panes
    for (int i = 0; i < 25; ++i) wide += "chha";
    roman.setText(lines(200) + wide);
    const auto expectSameLines = [&](const char* when) {
        QApplication::processEvents();
        EXPECT_EQ(roman.firstVisibleLine(), program.firstVisibleLine()) << when;
        EXPECT_EQ(roman.viewport()->height(), program.viewport()->height()) << when;
    };
    press(Qt::Key_End, Qt::ControlModifier);
    EXPECT_GT(roman.firstVisibleLine(), 150);
    EXPECT_TRUE(roman.horizontalScrollBar()->isVisible() && program.horizontalScrollBar()->isVisible());
    expectSameLines("at the end");
    press(Qt::Key_Return);
    expectSameLines("after a line more");
    press(Qt::Key_PageUp);
    expectSameLines("after a page");
    program.verticalScrollBar()->setValue(50);
    EXPECT_EQ(roman.firstVisibleLine(), 51);
    expectSameLines("after the bar of the program");
    QWheelEvent wheel(QPointF(50, 50), program.mapToGlobal(QPointF(50, 50)), {}, {0, -240}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(program.viewport(), &wheel);
    EXPECT_GT(program.firstVisibleLine(), 51);
    expectSameLines("after the wheel");
    roman.select(0, 0);
    EXPECT_EQ(program.firstVisibleLine(), 1);
    roman.setText("ka");
    expectSameLines("with nothing to scroll");
    EXPECT_FALSE(roman.horizontalScrollBar()->isVisible());
}

TEST_F(PanesTest, clickInTheProgramGoesToTheRomanText) {
    roman.setText("korA\r\ndAkhav nAv");
    const auto clickBehind = [&](const char* word, Qt::KeyboardModifiers modifiers = {}) {
        const QTextCursor found = program.document()->find(QString::fromLatin1(word));
        QTest::mouseClick(program.viewport(), Qt::LeftButton, modifiers, program.cursorRect(found).center());
    };
    clickBehind("daov");
    EXPECT_EQ(window.focusWidget(), &roman);
    type("A");
    EXPECT_EQ(roman.text(), "korA\r\ndAkhavA nAv");
    clickBehind("kae");
    clickBehind("nav", Qt::ShiftModifier);
    EXPECT_EQ(window.focusWidget(), &program) << "what is selected there can be copied";
    EXPECT_EQ(roman.currentLine(), 1);
    roman.setText(std::string(200'000, 'k'));
    QTest::mouseClick(program.viewport(), Qt::LeftButton, {}, place(program, 100, 0, 0.5));
    EXPECT_EQ(roman.caret(), 0U);
}

TEST_F(PanesTest, theCaretStaysInViewInLongLines) {
    roman.setText("dAkhav");
    press(Qt::Key_End);
    for (int word = 0; word < 40; ++word) type(" namaskAr");
    const int right = program.horizontalScrollBar()->value();
    EXPECT_GT(right, 0);
    press(Qt::Key_Return);
    type("kar");
    EXPECT_EQ(program.horizontalScrollBar()->value(), 0);
    press(Qt::Key_Up);
    press(Qt::Key_End);
    EXPECT_NEAR(program.horizontalScrollBar()->value(), right, program.lineHeight());
}

TEST_F(PanesTest, zoomTogether) {
    const auto wheel = [&](TextPane& pane, int angle) {
        QWheelEvent event(QPointF(50, 50), pane.mapToGlobal(QPointF(50, 50)), {}, {0, angle}, Qt::NoButton,
                          Qt::ControlModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(pane.viewport(), &event);
    };
    roman.setText("dAkhav (1)");
    const qreal height = roman.lineHeight();
    program.moveCursor(QTextCursor::End);
    const int right = program.cursorRect().left();
    window.grab();
    wheel(roman, 120);
    wheel(program, 120);
    wheel(roman, 60);
    EXPECT_EQ(aids.zoom().zoom(), 120);
    wheel(program, 60);
    EXPECT_EQ(aids.zoom().zoom(), 130);
    aids.zoom().zoomIn();
    EXPECT_EQ(aids.zoom().zoom(), 140);
    EXPECT_GT(roman.lineHeight(), height * 1.3);
    EXPECT_GT(program.cursorRect().left(), right * 1.3);
    EXPECT_EQ(roman.lineHeight(), program.lineHeight());
    EXPECT_EQ(roman.text(), "dAkhav (1)");
    EXPECT_EQ(program.text(), ProgramText("dAkhav (1)"));
    for (const auto& [angle, limit] : {std::pair(12000, ZoomTogether::most), std::pair(-12000, ZoomTogether::least)}) {
        wheel(roman, angle);
        EXPECT_EQ(aids.zoom().zoom(), limit);
        window.grab();
    }
    aids.zoom().setZoom(100);
    EXPECT_EQ(roman.lineHeight(), height);
}

TEST_F(PanesTest, linesStandSideBySide) {
    roman.setText("dAkhav (1) kamal\r\n\r\n(\r\nDhThU RikAr\r\nka");
    for (int line = 1; line <= 5; ++line) {
        roman.moveCursor(line == 1 ? QTextCursor::Start : QTextCursor::NextBlock);
        program.moveCursor(line == 1 ? QTextCursor::Start : QTextCursor::NextBlock);
        const int rowOfRoman =
            static_cast<int>((roman.cursorRect().center().y() - roman.firstVisibleTop()) / roman.lineHeight());
        const int rowOfProgram =
            static_cast<int>((program.cursorRect().center().y() - program.firstVisibleTop()) / program.lineHeight());
        EXPECT_EQ(rowOfRoman, line - 1);
        EXPECT_EQ(rowOfProgram, line - 1);
        EXPECT_EQ(roman.markedLine(), line);
        EXPECT_EQ(program.markedLine(), line);
    }
}

TEST_F(PanesTest, assistiveTechnologyLearnsWhereEachLetterStands) {
    type("dAkhav #\"#kshetra#\"# & a");
    press(Qt::Key_Return);
    type("a = 5");
    QAccessibleTextInterface* const text = QAccessible::queryAccessibleInterface(&program)->textInterface();
    const QRect pane(program.mapToGlobal(QPoint()), program.size());
    for (int offset = 0; offset < text->characterCount(); ++offset) {
        if (text->text(offset, offset + 1) == QLatin1String("\n")) continue;
        const QRect letter = text->characterRect(offset);
        EXPECT_TRUE(letter.width() > 1 && pane.contains(letter)) << offset;
        EXPECT_EQ(text->characterRect(text->offsetAtPoint(letter.center())), letter) << offset;
    }
}

}  // namespace
}  // namespace tolvan
