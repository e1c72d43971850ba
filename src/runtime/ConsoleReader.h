// What assistive technology reads of the console: the lines that were printed, and each new one as it is printed. Lines
// that come fast are told together.
#pragma once

#include <QObject>
#include <QTimer>

#include <string>
#include <vector>

namespace tolvan {

class ConsoleText;
class PictureBox;

class ConsoleReader : public QObject {
    Q_OBJECT
  public:
    // Both must outlive it.
    ConsoleReader(PictureBox& display, const ConsoleText& text);

    // The last lines, in Unicode, separated by line feeds.
    QString content() const;
    QString lastLine() const;

    // A line was printed, or all lines were erased. Costs nothing where nobody reads.
    void printed();

    // Sentences of internal text form that are no lines of the program.
    void tell(const std::vector<std::string>& sentences);

  private:
    QString contentFrom(std::size_t first) const;
    void announce();

    PictureBox& display_;
    const ConsoleText& text_;
    QTimer timer_;
    std::size_t announced_ = 0;  // lines
    QString told_;
};

}  // namespace tolvan
