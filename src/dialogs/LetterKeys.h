// Keys for captions in Devanagari, which have no letter to underline: the Roman letter with which a caption is spelled.
#pragma once

class QKeyEvent;
class QMenu;
class QWidget;

namespace tolvan {

// In an open menu: chooses the next item with that letter, and does it if it is the only one. False for other keys.
bool takeLetter(QMenu& menu, const QKeyEvent& key);

// In a dialog, with Alt: goes to the next button, or field by its label, with that letter, and presses a button that is
// the only one. False if there is none.
bool takeLetter(QWidget& dialog, const QKeyEvent& key);

}  // namespace tolvan
