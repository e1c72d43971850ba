// The size that the console's display had when it was closed last, kept in the user's settings.
#pragma once

#include <QSize>

class QWidget;

namespace tolvan {

class WindowFrame;

class ConsoleSize {
  public:
    // Gives `window`, which has not been shown yet, the size at which its display is as large as last time. At first,
    // and where the settings hold nothing sensible, that is 800 by 600, as on the text console; the window is never
    // larger than the screen. Both must outlive this.
    ConsoleSize(QWidget& window, const WindowFrame& frame);

    // Keeps the size of the display for the next window, if the user has chosen another one. A maximised window counts
    // as large as it was before.
    void remember();

  private:
    QWidget& window_;
    const WindowFrame& frame_;
    QSize opened_;
};

}  // namespace tolvan
