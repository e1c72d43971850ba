#include "runtime/ConsoleText.h"

#include "runtime/ConsoleFonts.h"

#include <string>

namespace tolvan {
namespace {

using Fill = PictureBox::FillStyle;
constexpr QColor black(0, 0, 0);

void replaceAll(std::string& text, std::string_view from, std::string_view to) {
    for (std::size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size())
        text.replace(at, from.size(), to);
}

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

void ConsoleText::printRuns(std::string_view text) {
    drawRuns(display_, text);
    display_.NewLine(devanagari_);
}

void ConsoleText::drawRuns(PictureBox& picture, std::string_view text) {
    const auto print = [&picture](std::string& run, PictureFont& font) {
        replaceAll(run, "\\{", "{");
        replaceAll(run, "\\}", "}");
        picture.Print(run, font);
        run.clear();
    };
    std::string run;
    bool isLatin = false;
    char previous = 0;
    for (const char character : text) {
        if (character == '{' && previous != '\\') {
            isLatin = true;
            print(run, devanagari_);
        } else if (character == '}' && previous != '\\') {
            isLatin = false;
            picture.CurrentY += LatinDrop();
            print(run, latin_);
            picture.CurrentY -= LatinDrop();
        } else {
            run += character;
        }
        previous = character;
    }
    if (!run.empty()) print(run, isLatin ? latin_ : devanagari_);
}

}  // namespace tolvan
