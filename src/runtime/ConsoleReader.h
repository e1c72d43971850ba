// What assistive technology reads of the console: the lines that were printed, and each new one as it is printed. Lines
// that come fast are told together.
#pragma once

#include "dialogs/Accessibility.h"

#include <QObject>
#include <QTimer>

#include <cstddef>
#include <vector>

namespace tolvan {

class ConsoleText;
class MessageStrip;
class PictureBox;
class ScrollBack;

class ConsoleReader : public QObject {
    Q_OBJECT
  public:
    // All must outlive it. `strip` and what may be null, the lines that are scrolled back to and another picture, hide
    // the display when they are shown.
    ConsoleReader(PictureBox& display, ConsoleText& text, MessageStrip& strip, const ScrollBack* scrollBack = nullptr,
                  const QWidget* cover = nullptr);

    // The last lines and what the strip says, in Unicode, separated by line feeds.
    QString content() const;
    QString lastLine() const;
    // What of that is in view on the display, or scrolled back to.
    std::vector<accessible::DrawnLine> drawnLines() const;

    // A line was printed, all lines were erased, or the strip says something. Costs nothing where nobody reads.
    void printed();

  private:
    std::size_t oldestLine() const;
    QString contentFrom(std::size_t first) const;
    void announce();

    PictureBox& display_;
    ConsoleText& text_;
    MessageStrip& strip_;
    const ScrollBack* scrollBack_;
    const QWidget* cover_;
    QTimer timer_;
    std::size_t announced_ = 0;  // lines
};

}  // namespace tolvan
