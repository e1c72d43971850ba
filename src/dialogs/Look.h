// How every window of the system looks: its colours (LookColours.h), its fonts, the unit of its distances. Windows name
// no colour and no pixel size of their own, so that the look can be changed here and nothing is cut off at another
// scaling.
#pragma once

#include "dialogs/LookColours.h"
#include "platform/richtext/StyledText.h"

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

// Gives the application the look that the desktop asks for, in place of the desktop's own style; once, after the
// application object exists.
void apply(QApplication& application);

// Another look, at once and in every window: widgets are told by QEvent::PaletteChange, where colours() are the new
// ones.
void use(Kind kind);

// What the desktop asks for: what its colours came closest to when the application started, or what has been heard of
// since.
Kind kindOfDesktop();
void setKindOfDesktop(Kind kind);

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
