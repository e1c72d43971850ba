// The colours of every look, in one table, from which the palette, the style sheet and all painting take theirs. Each
// look keeps to what can be read: text has a contrast of 4.5 to every ground on which it stands (7 in high contrast),
// greyed text, marks and what shows the focus one of 3.
#pragma once

#include <QColor>

#include <cstdint>

namespace tolvan::look {

enum class Kind : std::uint8_t { Light, Dark, Contrast };

struct Colours {
    // Grounds.
    QColor background;     // of windows
    QColor paper;          // of text that is read or typed
    QColor footer;         // strips of buttons, tool bars, status bars
    QColor accentLight;    // under the mouse, chosen lines
    QColor caretLine;      // the band of the caret's line, on paper
    QColor numbers;        // of the line numbers
    QColor captionActive;  // title bars
    QColor captionInactive;
    QColor flash;     // of a word that was put right
    QColor stepLine;  // the band of the line that is about to run, on paper; a value that has changed
    // Text.
    QColor text;
    QColor dimText;
    QColor greyedText;  // of what cannot be chosen now
    QColor accent;      // of headings; as a ground, of what is chosen, under `textOnAccent`
    QColor textOnAccent;
    QColor closeHover;  // the ground of the sign to close under the mouse, under `textOnClose`
    QColor textOnClose;
    // Words of a program.
    QColor keyword;
    QColor wordOfLibrary;
    QColor number;
    QColor literal;
    QColor comment;
    // Lines and marks.
    QColor line;  // between parts of a window, around buttons; it need not be seen
    QColor frameActive;
    QColor frameInactive;
    QColor focus;  // around what has the keyboard
    QColor error;
    QColor advice;
    QColor warning;  // of the sign of an error box, under `textOnAccent`
    // The board of the trace table, and chalk on it.
    QColor board;
    QColor boardChosen;  // the row that is looked at
    QColor boardLine;    // it need not be seen
    QColor chalk;
    QColor dimChalk;
    QColor newChalk;  // of what has changed
};

const Colours& coloursOf(Kind kind);

// Those of the look in use.
const Colours& colours();
Kind kind();

// Of WCAG 2: 1 to 21.
double contrast(const QColor& one, const QColor& other);

// The console is black in every look.
namespace console {
inline constexpr QColor selection{0x24, 0x5A, 0xA8};
inline constexpr QColor note{0xDF, 0xE9, 0xF7};   // what the console tells by itself
inline constexpr QColor track{0x22, 0x26, 0x2E};  // of the scroll bar
}  // namespace console

}  // namespace tolvan::look
