// A line or two in the console's letters that belong to the window and not to the program's picture: they stand over
// the display, which keeps what is under them.
#pragma once

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
    // Moves it to the lower edge of the display. To be called again when the display changes its size.
    void placeAtBottom();

  private:
    void draw();
    float widthOf(const std::string& sentence);

    ConsoleText text_;
    std::vector<std::string> sentences_;
};

}  // namespace tolvan
