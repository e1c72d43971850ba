#include "editor/panes/PaneColours.h"
#include "editor/panes/WordColours.h"
#include "translator/ProgramText.h"

#include <gmock/gmock.h>

namespace tolvan {
namespace {

// The line with a letter for the colour of each of its characters.
std::string coloursOf(const char* roman) {
    const StyledText line = Transliterate(roman);
    std::string colours(line.size(), '.');
    for (const ColourRun& run : wordColours(line)) {
        const char letter = run.colour == pane_colours::keyword   ? 'k'
                            : run.colour == pane_colours::number  ? 'n'
                            : run.colour == pane_colours::literal ? 't'
                                                                  : 'c';
        EXPECT_LE(run.start + run.length, line.size());
        colours.replace(run.start, run.length, run.length, letter);
    }
    return colours;
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
        {"1 sAThI 1 te 2 paryaMt", "n kkkk n kk n kkkk"},
    };
    for (const Case& one : cases) {
        std::string expected = one.colours;
        for (char& c : expected)
            if (c == ' ') c = '.';
        EXPECT_EQ(coloursOf(one.roman), expected) << one.roman;
    }
}

}  // namespace
}  // namespace tolvan
