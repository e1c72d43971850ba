// A click in the Devanagari pane takes the user to the same place in the Roman text, ready to type. The other way
// round, the place of the Roman caret is in view in the Devanagari pane where a line is longer than the pane is wide.
#pragma once

#include <QObject>

namespace tolvan {

class ProgramBox;
class RomanBox;
class RomanInput;

class CaretTogether : public QObject {
    Q_OBJECT
  public:
    // All must outlive it.
    CaretTogether(RomanBox& roman, ProgramBox& program, const RomanInput& input);

  private:
    void followRoman();
    void followClick();

    RomanBox& roman_;
    ProgramBox& program_;
    const RomanInput& input_;
};

}  // namespace tolvan
