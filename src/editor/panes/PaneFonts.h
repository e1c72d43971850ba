// The fonts of the two panes. Their lines have one height and one base line, so that a line of the program stands
// beside the line that was typed, whatever letters are on it.
#pragma once

#include <QFont>

namespace tolvan {

struct PaneFonts {
    QFont roman;  // of the Roman pane: every letter as wide as the others
    QFont devanagari;
    QFont latin;  // of Latin text in the Devanagari pane

    // Logical pixels.
    qreal lineHeight = 0;
    qreal baseLine = 0;  // below the top of the line

    static PaneFonts ofZoom(int percent);
};

}  // namespace tolvan
