// The size that the console had when it was closed last, kept in the user's settings.
#pragma once

#include <QSize>

namespace tolvan {

// At first, and where the settings hold nothing sensible, 800 by 600; never larger than the screen.
QSize rememberedConsoleSize();
void rememberConsoleSize(QSize size);

}  // namespace tolvan
