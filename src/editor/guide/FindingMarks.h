// Shows findings where they are: a wavy line under their place in both panes, a mark beside their line, and what they
// say as a tip.
#pragma once

#include "guide/Explanations.h"

#include <QObject>

#include <optional>
#include <vector>

namespace tolvan {

class ProgramBox;
class RomanBox;
class RomanInput;
class TextPane;

class FindingMarks : public QObject {
    Q_OBJECT
  public:
    // All must outlive it.
    FindingMarks(RomanBox& roman, ProgramBox& program, const RomanInput& input);

    void setFindings(const std::vector<guide::Finding>& findings);
    // How the last run failed, after the findings of its line.
    void setRunFailure(const std::optional<guide::RunFailure>& failure);
    // Null if its line is not known.
    const guide::Finding* runFailure() const { return failure_ ? &*failure_ : nullptr; }

    // The one at the caret, else the first of its line; null if there is none.
    const guide::Finding* atCaret() const;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void show();
    guide::Columns romanPlace(const guide::RunFailure& failure) const;
    guide::Columns programPlace(const guide::Finding& finding) const;
    const guide::Finding* at(int line, std::size_t column, bool inProgram) const;
    void markPlaces(TextPane& pane, bool isProgram);

    RomanBox& roman_;
    ProgramBox& program_;
    const RomanInput& input_;
    std::vector<guide::Finding> findings_;
    std::optional<guide::Finding> failure_;
    std::vector<guide::Finding> shown_;  // all of them
};

}  // namespace tolvan
