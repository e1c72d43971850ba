// How every window of the system looks: its colours, its fonts, the unit of its distances. Windows name no colour and
// no pixel size of their own, so that the look can be changed here and nothing is cut off at another scaling.
#pragma once

#include "platform/richtext/StyledText.h"

#include <QColor>
#include <QFont>
#include <QIcon>
#include <QString>

#include <cmath>
#include <string_view>

class QApplication;
class QPalette;
class QPoint;
class QWidget;

namespace tolvan::look {

// sRGB. `text` is readable (contrast above 4.5) on every background here but the accent, which takes `textOnAccent`.
inline constexpr QColor background{0xFB, 0xFA, 0xF8};  // of windows
inline constexpr QColor paper{0xFF, 0xFF, 0xFF};       // of text that is read or typed
inline constexpr QColor footer{0xF1, 0xEF, 0xEB};      // strips of buttons, tool bars, status bars
inline constexpr QColor line{0xD5, 0xD1, 0xCA};        // between parts of a window, around buttons
inline constexpr QColor text{0x22, 0x26, 0x2E};
inline constexpr QColor dimText{0x6B, 0x70, 0x7A};
inline constexpr QColor greyedText{0xA6, 0xA8, 0xAD};  // of what cannot be chosen now
inline constexpr QColor accent{0x24, 0x5A, 0xA8};
inline constexpr QColor accentLight{0xDF, 0xE9, 0xF7};  // under the mouse, chosen lines
inline constexpr QColor textOnAccent{0xFF, 0xFF, 0xFF};
inline constexpr QColor captionActive{0xDD, 0xE6, 0xF3};
inline constexpr QColor captionInactive{0xEF, 0xEE, 0xEB};
inline constexpr QColor frameActive{0x6F, 0x8F, 0xBC};
inline constexpr QColor frameInactive{0xC4, 0xC2, 0xBC};
inline constexpr QColor closeHover{0xC9, 0x3A, 0x32};
inline constexpr QColor warning{0xC2, 0x6A, 0x0C};

// Gives the application this look, in place of the desktop's own; once, after the application object exists.
void apply(QApplication& application);

// Captions of buttons, menus and titles. Devanagari letters are small for their size, so they are set larger than the
// desktop's texts.
QFont controlFont(Font font);

// How far below the middle of its line Devanagari text of controls must stand to look centred: the font leaves more
// room under its letters than over them. Logical pixels.
int devanagariDrop();

// Between the base line of control text and its head line. Logical pixels.
int devanagariBodyHeight();

// The unit of distances: the height of a line in the desktop's font, in logical pixels. At least 12.
int em();
inline int em(double count) {
    return static_cast<int>(std::lround(count * em()));
}

// Font-encoded text as the caption of a button or menu item: an ampersand is a letter there, not the mark of a
// mnemonic. A label takes toQString, and Qt::PlainText, because its "<" is a letter too.
QString captionText(std::string_view fontEncoded);

// Shows a tool tip in the Devanagari font; the tips of Qt's own dialogs are in the desktop's. `global` is the place of
// the mouse on the screen.
void showToolTip(QWidget& owner, QPoint global, const QString& fontEncoded);

// The application's icon, 16 to 256 pixels.
QIcon applicationIcon();

}  // namespace tolvan::look
