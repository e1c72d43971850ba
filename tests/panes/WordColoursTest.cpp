#include "dialogs/LookColours.h"
#include "editor/panes/WordColours.h"
#include "library/LibraryWords.h"
#include "panes/Panes.h"
#include "translator/ProgramText.h"

#include <QInputMethodEvent>
#include <QTextBlock>

#include <gmock/gmock.h>

namespace tolvan {
namespace {

std::string lettersOf(std::size_t size, const std::vector<ColourRun>& runs) {
    std::string colours(size, '.');
    for (const ColourRun& run : runs) {
        const char letter = run.colour == look::colours().keyword         ? 'k'
                            : run.colour == look::colours().number        ? 'n'
                            : run.colour == look::colours().literal       ? 't'
                            : run.colour == look::colours().wordOfLibrary ? 'l'
                                                                          : 'c';
        EXPECT_LE(run.start + run.length, size);
        colours.replace(run.start, run.length, run.length, letter);
    }
    return colours;
}

// The line with a letter for the colour of each of its characters.
std::string coloursOf(const char* roman) {
    const StyledText line = Transliterate(roman);
    return lettersOf(line.size(), wordColours(line, [](const LibraryWord&) { return false; }));
}

TEST(WordColours, areWhatTheTranslatorTakesAWordFor) {
    struct Case {
        const char* roman;
        const char* colours;
    };
    const Case cases[] = {
        {"", ""},
        {"dAkhav", "kkkk"},                              // daov
        {"dAkhav kamal", "kkkk ..."},                    // daov kml
        {"kamaldAkhav", "......."},                      // one word
        {"uttar = 12", "... . nn"},                      // %Är
        {"x12 (7,8)", "... .n.n."},                      //
        {"#1e5# #1e#", "nnn .."},                        // a number, a name
        {"dAkhav #\"#12 tar#\"#", "kkkk ttttttt"},       // a text
        {"dAkhav #\"#12", "kkkk ttt"},                   // a text without end
        {"dAkhav #\"# suchanA tar", "kkkk ttcccccccc"},  // a comment begins in a text too
        {"jar 1 suchanA tar 1", "kk n cccccccccc"},      // jr 1 sucna tr 1
        {"\"dAkhav", "....."},                           // a quote in Devanagari is a letter
        {"gh + bh * dya = 1", ". . . . . . n"},          // so are the glyphs of marks
        {"#dAkhav#", "......"},                          // Latin
        {"dAkhav phAsA(6) + bAkI", "kkkk llll.n. . llll"},
        {"1 sAThI 1 te 2 paryaMt", "n kkkk n kk n kkkk"},
    };
    for (const Case& one : cases) {
        std::string expected = one.colours;
        for (char& c : expected)
            if (c == ' ') c = '.';
        EXPECT_EQ(coloursOf(one.roman), expected) << one.roman;
    }
}

// Whatever line makes a word the program's own, and as long as it does.
TEST_F(Panes, colourALibraryWordUntilItIsTheProgramsOwn) {
    const auto colours = [&] {
        std::string letters;
        for (QTextBlock line = program.document()->begin(); line.isValid(); line = line.next()) {
            std::vector<ColourRun> runs;
            for (const QTextLayout::FormatRange& format : line.layout()->formats())
                if (format.format.hasProperty(QTextFormat::ForegroundBrush))
                    runs.push_back({static_cast<std::size_t>(format.start), static_cast<std::size_t>(format.length),
                                    format.format.foreground().color()});
            letters += lettersOf(static_cast<std::size_t>(line.length() - 1), runs) + '|';
        }
        return letters;
    };
    roman.setText("dAkhav kaL\r\n");
    EXPECT_EQ(colours(), "kkkk.ll|..|");
    roman.select(roman.text().size(), 0);
    type("ghe kaL");
    EXPECT_EQ(colours(), "kkkk...|kk.....|");
    press(Qt::Key_Backspace);
    EXPECT_EQ(colours(), "kkkk.ll|kk....|");
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(colours(), "kkkk...|kk.....|");
    roman.setText("dAkhav kaL");
    EXPECT_EQ(colours(), "kkkk.ll..|");
}

std::string coloursOf(const QTextBlock& block) {
    std::vector<ColourRun> runs;
    for (const auto& range : block.layout()->formats())
        runs.push_back({static_cast<std::size_t>(range.start), static_cast<std::size_t>(range.length),
                        range.format.foreground().color()});
    return lettersOf(static_cast<std::size_t>(block.length() - 1), runs);
}

using RomanColoursTest = Panes;

// The pane after the text has been typed in any way; lines are separated by "|".
TEST_F(RomanColoursTest, areThoseOfTheProgram) {
    const std::pair<const char*, const char*> cases[] = {
        {"dAkhav #\"#12 tar#\"#", "kkkkkk.tttttttttttt"},
        {"dAkhav \"", "kkkkkk.."},                                      // outside of a span it is a letter
        {"#12# tar", "nnnn.kkk"},                                       // the marks go with what they hold
        {"dA##khav 1", "kkkkkkkk.n"},                                   // an empty span separates no words
        {"jar 1shAsuchanA tar", "kkk.....ccccccccccc"},                 // a comment begins within a word
        {"dAkhav #\"#mI #Ram|tar# tar", "kkkkkk.tttttttttt|.....kkk"},  // a span over two lines
        {"dAkhav #1|tar", "kkkkkk..n|kkk"},                             // a mark that is never closed
    };
    for (const auto& [text, colours] : cases) {
        std::string lines = text;
        for (std::size_t at; (at = lines.find('|')) != std::string::npos;) lines.replace(at, 1, "\r\n");
        roman.setText(lines);
        std::string shown = coloursOf(roman.document()->begin());
        if (roman.lineCount() > 1) shown += '|' + coloursOf(roman.document()->lastBlock());
        EXPECT_EQ(shown, colours) << text;
    }
}

TEST_F(RomanColoursTest, followEveryKey) {
    roman.setText("jar 1 tar\r\njar 2 tar# tar");
    EXPECT_EQ(coloursOf(roman.document()->lastBlock()), "kkk.n.kkk..kkk");
    press(Qt::Key_NumberSign);  // turns the spans of both lines
    type("#");
    press(Qt::Key_Backspace);
    EXPECT_EQ(coloursOf(roman.document()->lastBlock()), "....n......kkk");
    EXPECT_EQ(coloursOf(roman.document()->begin()), ".....n....");
    QInputMethodEvent composing(QStringLiteral("\u0915"), {});
    QApplication::sendEvent(&roman, &composing);
    EXPECT_THAT(roman.document()->begin().layout()->formats(),
                ::testing::SizeIs(2));  // the number, and what is composed
    QInputMethodEvent given;
    QApplication::sendEvent(&roman, &given);
    EXPECT_EQ(coloursOf(roman.document()->begin()), ".....n....");
}

}  // namespace
}  // namespace tolvan
