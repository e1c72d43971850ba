// Marks the line of the caret in both panes.
#pragma once

#include <QObject>

namespace tolvan {

class ProgramBox;
class RomanBox;

class CaretLine : public QObject {
    Q_OBJECT
  public:
    // Both must outlive it.
    CaretLine(RomanBox& roman, ProgramBox& program);
};

}  // namespace tolvan
