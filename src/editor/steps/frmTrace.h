// The table of what a program has done, as a teacher draws it on the board. Choosing a row shows that moment again: its
// line, all values, and what had been printed and drawn by then.
#pragma once

#include "editor/steps/TraceModel.h"
#include "sheet/TableSheet.h"

#include <QWidget>

#include <functional>

class QCheckBox;
class QKeyEvent;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QTableView;

namespace tolvan {

class EditorSteps;

class frmTrace : public QWidget {
    Q_OBJECT
  public:
    // `takesKey` is given the keys that the window has no use for. `steps` must outlive it.
    frmTrace(EditorSteps& steps, std::function<bool(const QKeyEvent&)> takesKey, QWidget* parent);
    ~frmTrace() override;

    TraceModel& model() { return model_; }
    QTableView& board() { return *tblTrace_; }

    // The rows that are chosen, or all, in one of the two forms.
    std::string text(bool asCsv) const;
    // What is not covered, to be printed.
    TableSheet sheet(const StyledText& caption) const;

  signals:
    void csvWanted();
    void printWanted();
    void pdfWanted();

  protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    QPushButton* addButton(const char* name, std::string_view caption);
    QLabel* addLabel(const char* name);
    void setUpBoard();
    void setUpGuess();
    void setUpLayout();
    void applyLook();
    void refresh();
    void fitColumns(int first = 0);
    void fillColumnList();
    void chose(const QModelIndex& index);
    void guess(bool guessing);
    void uncover();
    void askGuess();
    void stayOnScreen();
    void checkGuess();
    void conceal();
    void tell();

    EditorSteps& steps_;
    std::function<bool(const QKeyEvent&)> takesKey_;
    TraceModel model_;
    QTableView* tblTrace_;
    QListWidget* lstColumns_;
    QCheckBox* chkGuess_;
    QLabel* lblGuess_;
    QLineEdit* txtGuess_;
    QLabel* lblAnswer_;
    QPushButton* cmdUncover_;
    QPushButton* cmdCopy_;
    QPushButton* cmdCsv_;
    QPushButton* cmdPrint_;
    QPushButton* cmdPdf_;
    QLabel* lblRow_;
    bool isRefreshing_ = false;
};

}  // namespace tolvan
