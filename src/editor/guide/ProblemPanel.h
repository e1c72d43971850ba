// The list of what is wrong with the program, below the panes: what the guide says, and above it how the last run
// failed. It is only there when it has something to say.
#pragma once

#include "dialogs/StyledLine.h"
#include "guide/Explanations.h"
#include "guide/Finding.h"

#include <QWidget>

#include <cstddef>
#include <optional>
#include <vector>

class QListWidget;
class QPushButton;

namespace tolvan {

class ProblemPanel : public QWidget {
    Q_OBJECT
  public:
    explicit ProblemPanel(QWidget* parent);

    void setFindings(const std::vector<guide::Finding>& findings);

    // Above the findings, until it is taken away with nothing.
    void setRunFailure(const std::optional<guide::RunFailure>& failure);

    // Goes to the one chosen, or from it to the next one, the first again after the last. False if there is none.
    bool chooseNext();

    // It takes the keyboard; Enter goes to the chosen one.
    QListWidget& list() const { return *lstProblems_; }

    // Chooses that of the line, if another line's is chosen. For the caret's line.
    void chooseLine(std::size_t line);

    // What would mend the chosen one, the best first; null if nothing is known that would.
    const guide::Correction* correction(std::size_t number = 0) const;
    // The kind of the chosen one, or guide::failedRun; empty if there is none.
    std::string_view kind() const;

  signals:
    // The user chose one; columns of the Roman text.
    void chosen(std::size_t line, guide::Columns place);
    // The user chose how the last run failed, and its line is known.
    void failureChosen();
    // The number of one of its corrections.
    void correctionWanted(std::size_t number);

  private:
    void fill();
    void addRow(const StyledText& text, std::optional<bool> isError);
    QPushButton* addButton(const char* name, std::size_t correction);
    void showButtons();
    void chose(int row);
    const guide::Finding* current() const;
    int failureRows() const { return failure_ ? 1 + static_cast<int>(failure_->explanation.size()) : 0; }

    QListWidget* lstProblems_;
    QPushButton* cmdMend_;
    QPushButton* cmdMendOther_;  // with the second correction
    std::vector<ControlText> rows_;
    std::vector<guide::Finding> findings_;
    std::optional<guide::RunFailure> failure_;
    bool isAtChosen_ = false;  // the user has been there
};

}  // namespace tolvan
