#include "runtime/ConsoleText.h"

#include "platform/richtext/InternalText.h"
#include "runtime/ConsoleFonts.h"
#include "translator/Blanks.h"

namespace tolvan {
namespace {

using Fill = PictureBox::FillStyle;
constexpr QColor black(0, 0, 0);

}  // namespace

ConsoleText::ConsoleText(PictureBox& display)
    : display_(display),
      devanagari_(consoleFont(Font::Devanagari)),
      latin_(consoleFont(Font::Latin)),
      lineHeight_(display.TextHeight(devanagari_)) {
    // As low as signs below the letters allow. Latin letters that are dropped stand on one line with the others.
    devanagari_.setBaseline(0.7 * lineHeight_);
    latin_.setBaseline(devanagari_.baseline() - LatinDrop());
}

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
    makeRoom(Room::ForText);
    eraseLine();
    printRuns(trimBlanks(text));
}

void ConsoleText::ClearScreen() {
    display_.Box(display_.ScaleWidth(), display_.ScaleHeight(), 0, 0, black, Fill::Solid);
}

void ConsoleText::printRuns(std::string_view text) {
    drawRuns(display_, text);
    display_.NewLine(devanagari_);
}

void ConsoleText::drawRuns(PictureBox& picture, std::string_view text) {
    for (const InternalTextRun& run : InternalTextRuns(text)) {
        const float drop = run.dropped ? LatinDrop() : 0;
        picture.CurrentY += drop;
        picture.Print(run.text, run.font == Font::Devanagari ? devanagari_ : latin_);
        picture.CurrentY -= drop;
    }
}

}  // namespace tolvan
