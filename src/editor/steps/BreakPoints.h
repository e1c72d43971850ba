// The lines of a document at which its program is to stand still. They go with their lines while the text is changed,
// and are shown beside them in both panes.
#pragma once

#include <QObject>

#include <map>

namespace tolvan {

class ProgramBox;
class RomanBox;

class BreakPoints : public QObject {
    Q_OBJECT
  public:
    // Both must outlive it. A click beside a line sets one or takes it away; with Shift its pass is asked for.
    BreakPoints(RomanBox& roman, ProgramBox& program);

    // Lines are counted from 1. With each goes at which pass the program stands there: the n-th time that the line is
    // about to run, counted in each run; 0: each time.
    const std::map<int, int>& lines() const { return lines_; }
    // True if there is one now.
    bool toggle(int line);
    void set(int line, int pass);
    // For another document.
    void clear() { setLines({}); }

  signals:
    void changed();
    // Which pass is it to be?
    void passWanted(int line);

  private:
    void setLines(std::map<int, int> lines);
    void follow(int position, int removed, int added);

    RomanBox& roman_;
    ProgramBox& program_;
    std::map<int, int> lines_;
    int lineCount_;
};

}  // namespace tolvan
