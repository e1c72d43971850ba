// What is told in English, before the Devanagari boxes can be counted on: start-up and the command line.
#pragma once

#include <QStringList>

#include <string_view>

namespace tolvan {

// A plain box with an OK button, under the application's name, or on Windows a line in the terminal that the
// application was started from. `text` is ASCII; lines are separated by CR LF.
void showPlainMessage(std::string_view text);

// Whether the list of the screen's fonts has the two fonts that everything is shown in, each once.
bool hasRequiredFonts(const QStringList& screenFonts);

// Says that they are missing.
void showFontsRequired();

}  // namespace tolvan
