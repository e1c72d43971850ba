// A line or two in the console's letters that belong to the window and not to the program's picture: they stand over
// the display, which keeps what is under them.
#pragma once

#include "dialogs/Accessibility.h"
#include "platform/picturebox/PictureBox.h"
#include "runtime/ConsoleText.h"

#include <string>
#include <vector>

namespace tolvan {

class MessageStrip : public PictureBox {
    Q_OBJECT

  public:
    // Hidden, over `display`, which owns it.
    explicit MessageStrip(PictureBox& display);

    // Shows sentences of internal text form beside each other, or below each other where they are too wide together.
    void tell(std::vector<std::string> sentences);
    bool isTelling() const { return !isHidden(); }
    // What it shows, in Unicode, a line for each sentence; and where that stands on the display.
    QString content() const;
    std::vector<accessible::DrawnLine> drawnLines();
    // Moves it to the lower edge of the display. To be called again when the display changes its size.
    void placeAtBottom();

  private:
    void draw();
    float widthOf(const std::string& sentence);
    std::vector<QPointF> places();

    ConsoleText text_;
    std::vector<std::string> sentences_;
};

}  // namespace tolvan
