// Has the guide look at the program while the user types: a while after the last key, and never at the line that is
// being typed before the caret leaves it. An end that is missing is not missed while the lines of its block are typed.
#pragma once

#include "guide/Guide.h"

#include <QObject>
#include <QTimer>

#include <vector>

namespace tolvan {

class RomanBox;
class RomanInput;

class FindingWatch : public QObject {
    Q_OBJECT
  public:
    // Both must outlive it.
    FindingWatch(RomanBox& roman, const RomanInput& input);

    // Without it there are no findings.
    void setEnabled(bool enabled);

    // Looks at once, at every line. For the start of a run.
    void checkNow();

    // By lines; what is to be shown now.
    const std::vector<guide::Finding>& findings() const { return shown_; }

  signals:
    void findingsChanged();

  private:
    void textChanged();
    void caretMoved();
    void check();
    void show();
    static void move(guide::Finding& finding, int changed, int more);
    bool waits(const guide::Finding& finding) const;

    RomanBox& roman_;
    guide::Guide guide_;
    QTimer timer_;
    std::vector<guide::Finding> all_;
    std::vector<guide::Finding> shown_;
    int lines_ = 1;      // of the text at the last change
    int typedLine_ = 0;  // from 1, of the last change, as long as the caret is in it; else 0
    int caretLine_ = 1;
    bool isTyping_ = false;  // there was a change since checkNow
    bool enabled_ = true;
};

}  // namespace tolvan
