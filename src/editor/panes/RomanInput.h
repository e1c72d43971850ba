// Keeps the Devanagari pane equal to the program text of the Roman pane while the user types.
#pragma once

#include <QObject>

namespace tolvan {

class ProgramBox;
class RomanBox;

class RomanInput : public QObject {
    Q_OBJECT
  public:
    // Both must outlive it. What the Roman box already holds is shown at once.
    RomanInput(RomanBox& roman, ProgramBox& program);

  signals:
    // After every change of the Roman text; the Devanagari pane shows it already.
    void programChanged();

  private:
    void update();

    RomanBox& roman_;
    ProgramBox& program_;
};

}  // namespace tolvan
