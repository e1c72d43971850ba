// The lines of a document at which its program is to stand still. They go with their lines while the text is changed,
// and are shown beside them in both panes.
#pragma once

#include <QObject>

#include <set>

namespace tolvan {

class ProgramBox;
class RomanBox;

class BreakPoints : public QObject {
    Q_OBJECT
  public:
    // Both must outlive it. A click beside a line sets one or takes it away.
    BreakPoints(RomanBox& roman, ProgramBox& program);

    // Lines are counted from 1.
    const std::set<int>& lines() const { return lines_; }
    // True if there is one now.
    bool toggle(int line);
    // For another document.
    void clear() { setLines({}); }

  signals:
    void changed();

  private:
    void setLines(std::set<int> lines);
    void follow(int position, int removed, int added);

    RomanBox& roman_;
    ProgramBox& program_;
    std::set<int> lines_;
    int lineCount_;
};

}  // namespace tolvan
