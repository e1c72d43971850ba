#include "editor/panes/PaneColours.h"
#include "editor/panes/WordColours.h"
#include "library/LibraryWords.h"
#include "panes/Panes.h"
#include "translator/ProgramText.h"

#include <QTextBlock>

#include <gmock/gmock.h>

namespace tolvan {
namespace {

std::string lettersOf(std::size_t size, const std::vector<ColourRun>& runs) {
    std::string colours(size, '.');
    for (const ColourRun& run : runs) {
        const char letter = run.colour == pane_colours::keyword       ? 'k'
                            : run.colour == pane_colours::number      ? 'n'
                            : run.colour == pane_colours::literal     ? 't'
                            : run.colour == pane_colours::libraryWord ? 'l'
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

}  // namespace
}  // namespace tolvan
