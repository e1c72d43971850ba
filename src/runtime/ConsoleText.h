// Lines of text on the console's display: where they stand, how they make room for each other, and how a line of
// internal text form is drawn in its two fonts.
#pragma once

#include "platform/picturebox/PictureBox.h"

#include <string_view>

namespace tolvan {

class ConsoleText {
  public:
    // The display must outlive this.
    explicit ConsoleText(PictureBox& display);

    // Where every line starts; display units.
    static constexpr float leftMargin = 3;

    float LineHeight() const { return lineHeight_; }
    // How far Latin text is drawn below the top of the line.
    float LatinDrop() const { return lineHeight_ / 4; }

    // Prints a line of internal text form, without the blanks at its ends, and goes to the next.
    void PrintString(std::string_view text);
    // Erases everything and goes to the top.
    void ClearScreen();

    // Makes the current line one that the display has: where it would reach the bottom edge, everything moves up by a
    // line. An input line wants a line more, for the box that it is typed in.
    enum class Room { ForText, ForInput };
    void makeRoom(Room room);
    // Erases the current line, right of the margin.
    void eraseLine();
    // Draws internal text form at the current position and goes to the next line.
    void printRuns(std::string_view text);
    // The same on any picture, staying on the line.
    void drawRuns(PictureBox& picture, std::string_view text);

  private:
    void moveTo(float y);

    PictureBox& display_;
    PictureFont devanagari_;
    PictureFont latin_;
    float lineHeight_;
};

}  // namespace tolvan
