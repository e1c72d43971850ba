// The size that the console's display had when it was closed last, kept in the user's settings.
#pragma once

#include <QMargins>
#include <QSize>

namespace tolvan {

// The size of a window with this frame around the display. At first, and where the settings hold nothing sensible, the
// display has 800 by 600, as on the text console; the window is never larger than the screen.
QSize rememberedConsoleSize(QMargins frame);

// Keeps the size of the display in such a window for the next one.
void rememberConsoleSize(QSize window, QMargins frame);

}  // namespace tolvan
