// The list of what is wrong with the program, below the panes: what the guide says, and above it how the last run
// failed. It is only there when it has something to say.
#pragma once

#include "guide/Finding.h"
#include "platform/richtext/StyledText.h"

#include <QWidget>

#include <cstddef>
#include <optional>
#include <vector>

class QListWidget;
class QPushButton;

namespace tolvan {

// How a run failed.
struct RunFailure {
    std::size_t line = 0;  // of the program, from 1; 0: not known
    StyledText sentence;   // the line itself
    StyledText message;
    StyledText explanation;  // what it usually means; may be empty
};

class ProblemPanel : public QWidget {
    Q_OBJECT
  public:
    explicit ProblemPanel(QWidget* parent);

    void setFindings(const std::vector<guide::Finding>& findings);

    // Shown until it is set again; nothing: removes it.
    void setRunFailure(const std::optional<RunFailure>& failure);

    // Chooses the next one behind the one chosen, the first again behind the last. False if there is none.
    bool chooseNext();

    // Chooses that of the line, if another line's is chosen. For the caret's line.
    void chooseLine(std::size_t line);

    // What would mend the chosen one; null if nothing is known that would.
    const guide::Correction* correction() const;
    // The kind of the chosen one; empty if there is none, or for the failure of a run.
    std::string_view kind() const;

  signals:
    // The user chose one; columns of the Roman text.
    void chosen(std::size_t line, guide::Columns place);
    void correctionWanted();

  private:
    void fill();
    void showButton();
    void chose(int row);
    const guide::Finding* current() const;
    int failureRows() const { return failure_ ? 1 : 0; }

    QListWidget* lstProblems_;
    QPushButton* cmdMend_;
    std::vector<StyledText> rows_;  // what they say
    std::vector<guide::Finding> findings_;
    std::optional<RunFailure> failure_;
    bool wentToOne_ = false;  // chooseNext goes to the first one first
};

}  // namespace tolvan
