// The two fonts of the system as Qt has them. They are known by name ("Sanskrit 1.2", "Times New Roman"); where no font
// of a name is installed, a stand-in from the application's own resources takes its place. Needs a QGuiApplication.
#pragma once

#include "platform/richtext/StyledText.h"

#include <QFont>
#include <QString>
#include <QStringList>

namespace tolvan {

// The name by which programs and rich text know a font; empty for Font::Other.
QString fontName(Font font);

// Loads the stand-ins, once in a process. The other routines here do it themselves; a call beforehand only chooses the
// moment. False if one of them could not be loaded.
bool loadStandIns();

// The families that the screen can show: the installed ones, and each of the two names that a stand-in answers for.
// No name comes twice.
QStringList screenFontList();

// The font of a name, or its stand-in, in the application's size; Font::Other is the application's font. Its family()
// is the name, whichever of the two draws it.
QFont qtFont(Font font);
QFont qtFont(Font font, qreal points);

}  // namespace tolvan
