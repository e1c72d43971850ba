#include "runtime/ConsoleFonts.h"

#include "platform/fonts/Fonts.h"

namespace tolvan {

QFont consoleFont(Font font) {
    constexpr int points = 18;
    return qtFont(font, points);
}

}  // namespace tolvan
