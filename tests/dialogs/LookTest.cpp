// That everything can be read in every look, by the contrast of its colours.
#include "dialogs/Look.h"

#include <QApplication>
#include <QPushButton>
#include <QTest>

#include <algorithm>
#include <gtest/gtest.h>
#include <iostream>
#include <vector>

namespace tolvan::look {
namespace {

using Role = QColor Colours::*;

struct Pair {
    const char* what;
    Role colour;
    std::vector<Role> grounds;
    enum { Text, Greyed, Mark } kind;
};

const std::vector<Role> windows = {&Colours::background, &Colours::paper, &Colours::footer};
const std::vector<Role> panes = {&Colours::paper, &Colours::caretLine, &Colours::stepLine};
const std::vector<Role> boards = {&Colours::board, &Colours::boardChosen};

const Pair pairs[] = {
    {"text",
     &Colours::text,
     {&Colours::background, &Colours::paper, &Colours::footer, &Colours::accentLight, &Colours::caretLine,
      &Colours::numbers, &Colours::captionActive, &Colours::flash, &Colours::stepLine},
     Pair::Text},
    {"dim text",
     &Colours::dimText,
     {&Colours::background, &Colours::paper, &Colours::footer, &Colours::numbers, &Colours::captionInactive},
     Pair::Text},
    {"greyed text", &Colours::greyedText, windows, Pair::Greyed},
    {"accent", &Colours::accent, windows, Pair::Text},
    {"text on accent", &Colours::textOnAccent, {&Colours::accent}, Pair::Text},
    {"text on the sign to close", &Colours::textOnClose, {&Colours::closeHover}, Pair::Text},
    {"sign of an error box", &Colours::textOnAccent, {&Colours::warning}, Pair::Text},
    {"keyword", &Colours::keyword, panes, Pair::Text},
    {"word of the library", &Colours::wordOfLibrary, panes, Pair::Text},
    {"number", &Colours::number, panes, Pair::Text},
    {"literal", &Colours::literal, panes, Pair::Text},
    {"comment", &Colours::comment, panes, Pair::Text},
    {"chalk", &Colours::chalk, boards, Pair::Text},
    {"dim chalk", &Colours::dimChalk, boards, Pair::Text},
    {"chalk of what has changed", &Colours::newChalk, boards, Pair::Text},
    {"focus", &Colours::focus, windows, Pair::Mark},
    {"error", &Colours::error, {&Colours::paper, &Colours::caretLine, &Colours::numbers}, Pair::Mark},
    {"advice", &Colours::advice, {&Colours::paper, &Colours::caretLine, &Colours::numbers}, Pair::Mark},
};

TEST(Look, EverythingCanBeReadInEveryLook) {
    EXPECT_NEAR(contrast(Qt::black, Qt::white), 21, 0.001);
    EXPECT_NEAR(contrast(QColor(0x76, 0x76, 0x76), Qt::white), 4.54, 0.01);
    const char* const names[] = {"light", "dark", "contrast"};
    for (const Kind kind : {Kind::Light, Kind::Dark, Kind::Contrast}) {
        const double text = kind == Kind::Contrast ? 7 : 4.5;
        for (const Pair& pair : pairs) {
            double least = 21;
            for (const Role ground : pair.grounds)
                least = std::min(least, contrast(coloursOf(kind).*pair.colour, coloursOf(kind).*ground));
            EXPECT_GE(least, pair.kind == Pair::Text ? text : 3) << names[static_cast<int>(kind)] << ": " << pair.what;
            std::cout << names[static_cast<int>(kind)] << '\t' << pair.what << '\t' << least << '\n';
        }
    }
}

// The button as it is painted, before and after the look has changed under it.
TEST(Look, ChangesInWindowsThatAreOpen) {
    QPushButton button(QStringLiteral("a"));
    button.show();
    for (const Kind kind : {Kind::Dark, Kind::Contrast, Kind::Light}) {
        use(kind);
        const QColor ground = button.grab().toImage().pixelColor(button.width() / 2, button.height() - 5);
        EXPECT_EQ(ground, colours().paper);
        EXPECT_EQ(button.palette().color(QPalette::WindowText), colours().text);
    }
}

}  // namespace
}  // namespace tolvan::look
