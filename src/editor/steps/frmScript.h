// The script of the program beside the program's lines, for those who go on to a grown-up language.
#pragma once

#include "editor/steps/ScriptText.h"
#include "platform/richtext/StyledText.h"

#include <QAbstractTableModel>
#include <QWidget>

#include <functional>

class QCheckBox;
class QKeyEvent;
class QTableView;

namespace tolvan {

class ScriptModel : public QAbstractTableModel {
    Q_OBJECT
  public:
    using QAbstractTableModel::QAbstractTableModel;

    void show(std::vector<ScriptLine> lines, const StyledText& program);
    // The line of the program that is about to run; 0: none.
    void setStepLine(int line);
    int programLine(int row) const { return lines_[static_cast<std::size_t>(row)].programLine; }
    // The first row of a line of the program; -1: none.
    int rowOf(int programLine) const;

    enum Column : int { LineColumn, ProgramColumn, ScriptColumn, columnTotal };

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    std::string text(const QModelIndex& index) const;

    std::vector<ScriptLine> lines_;
    std::vector<std::string> program_;  // lines, in internal text form
    int stepLine_ = 0;
};

class frmScript : public QWidget {
    Q_OBJECT
  public:
    // `takesKey` is given the keys that the window has no use for.
    frmScript(std::function<bool(const QKeyEvent&)> takesKey, QWidget* parent);

    void show(RunnableProgram program, const StyledText& text);
    // The line of the caret, and the one that is about to run; 0: none.
    void showLine(int programLine);
    void setStepLine(int programLine) { model_.setStepLine(programLine); }

  signals:
    // The user went to a line of the program.
    void lineChosen(int programLine);

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void fill();

    std::function<bool(const QKeyEvent&)> takesKey_;
    RunnableProgram program_;
    StyledText text_;
    ScriptModel model_;
    QTableView* tblScript_;
    QCheckBox* chkAsItIs_;
    bool isFollowing_ = false;
};

}  // namespace tolvan
