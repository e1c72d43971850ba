#include "runtime/ConsoleText.h"

#include "runtime/ConsoleFonts.h"

#include <string>

namespace tolvan {
namespace {

using Fill = PictureBox::FillStyle;
constexpr QColor black(0, 0, 0);

}  // namespace

ConsoleText::ConsoleText(PictureBox& display)
    : display_(display),
      devanagari_(consoleFont(Font::Devanagari)),
      latin_(consoleFont(Font::Latin)),
      lineHeight_(display.TextHeight(devanagari_)) {}

void ConsoleText::moveTo(float y) {
    display_.PSet(leftMargin, y, black);
}

void ConsoleText::makeRoom(Room room) {
    const bool reachesBottom = room == Room::ForInput ? display_.CurrentY + 2 * lineHeight_ > display_.ScaleHeight()
                                                      : display_.CurrentY + lineHeight_ >= display_.ScaleHeight();
    if (!reachesBottom) return moveTo(display_.CurrentY);
    display_.ScrollUp(lineHeight_);
    moveTo(display_.ScaleHeight() - lineHeight_);
}

// Drawn from the lower right corner, so that the position is back at the start of the line.
void ConsoleText::eraseLine() {
    const float y = display_.CurrentY;
    display_.Box(display_.ScaleWidth(), y + lineHeight_, leftMargin, y, black, Fill::Solid);
}

void ConsoleText::PrintString(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    text = first == std::string_view::npos ? std::string_view() : text.substr(first);
    text = text.substr(0, text.find_last_not_of(' ') + 1);
    makeRoom(Room::ForText);
    eraseLine();
    printRuns(text);
}

void ConsoleText::ClearScreen() {
    display_.Box(display_.ScaleWidth(), display_.ScaleHeight(), 0, 0, black, Fill::Solid);
}

}  // namespace tolvan
