// What assistive technology reads of the console: the lines that were printed, and each new one as it is printed. Lines
// that come fast are told together.
#pragma once

#include "dialogs/Accessibility.h"

#include <QObject>
#include <QTimer>

#include <string>
#include <vector>

namespace tolvan {

class ConsoleText;
class PictureBox;
class ScrollBack;

class ConsoleReader : public QObject {
    Q_OBJECT
  public:
    // All must outlive it.
    ConsoleReader(PictureBox& display, ConsoleText& text, const ScrollBack& scrollBack);

    // The last lines, in Unicode, separated by line feeds.
    QString content() const;
    QString lastLine() const;
    // What of that is in view on the display, or scrolled back to.
    std::vector<accessible::DrawnLine> drawnLines() const;

    // A line was printed, or all lines were erased. Costs nothing where nobody reads.
    void printed();

    // Sentences of internal text form that are no lines of the program.
    void tell(const std::vector<std::string>& sentences);

  private:
    std::size_t oldestLine() const;
    QString contentFrom(std::size_t first) const;
    void announce();

    PictureBox& display_;
    ConsoleText& text_;
    const ScrollBack& scrollBack_;
    QTimer timer_;
    std::size_t announced_ = 0;  // lines
    QString told_;
};

}  // namespace tolvan
