#include "runtime/ConsoleFonts.h"

namespace tolvan {

QFont consoleFont(Font font) {
    constexpr int points = 18;
    return QFont(font == Font::Devanagari ? QStringLiteral("Sanskrit 1.2") : QStringLiteral("Times New Roman"), points);
}

}  // namespace tolvan
