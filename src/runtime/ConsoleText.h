// Lines of text on the console's display: where they stand, how they make room for each other, and how a line of
// internal text form is drawn in its two fonts.
#pragma once

#include "platform/picturebox/PictureBox.h"
#include "platform/richtext/InternalText.h"
#include "runtime/PrintedLines.h"

#include <string>
#include <string_view>
#include <vector>

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
    // Everything as before the first line of a run.
    void reset();

    // The lines that are in view; and where a picture shows them already, after a reset, the same as if they were
    // printed.
    struct SeenLine {
        std::string text;  // internal text form
        float top;
    };
    std::vector<SeenLine> seenLines() const;
    void setSeenLines(const std::vector<SeenLine>& lines);

    // What has been printed since the last reset.
    const PrintedLines& lines() const { return lines_; }
    // Where a line stands: its top, which may have left the display. Erased lines stand above it.
    float topOf(std::size_t line) const;

    // Makes room below the current line: where this height, from the top of the line, would reach over the bottom edge,
    // everything moves up by as many lines as it takes.
    void makeRoom(float height);
    // Whether a line of this height fits below the last one without moving anything up.
    bool hasRoom(float height) const;
    bool hasRoom() const { return hasRoom(lineHeight_); }
    // Erases the current line, right of the margin.
    void eraseLine();
    // Prints internal text form on the current line and goes to the next.
    void printRuns(std::string_view text);

    // Draws internal text form at the current position of any picture and moves the position after it; what lies beyond
    // the picture's right edge is left out.
    void drawRuns(PictureBox& picture, std::string_view text);

    // The part of a text that reaches farther than any screen is wide, as runs: what is drawn of it.
    static std::vector<InternalTextRun> visibleRuns(std::string_view text);
    // Where the characters of these runs start, from where the text does, and where the last one ends; display units.
    std::vector<float> edges(const std::vector<InternalTextRun>& runs);

  private:
    void moveTo(float y);
    void scrollUp(float distance);

    PictureBox& display_;
    PictureFont devanagari_;
    PictureFont latin_;
    float lineHeight_;
    PrintedLines lines_;
    double scrolled_ = 0;     // how far everything has moved up since the last reset
    std::size_t erased_ = 0;  // lines before this one
    double erasedAt_ = 0;     // scrolled_ at that time
};

}  // namespace tolvan
