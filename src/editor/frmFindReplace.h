// Finds and replaces in the Roman text of the editor. What is typed is shown in Devanagari below it. The window is not
// modal; closed and shown again it holds the texts that were typed last.
//
// A search goes on from the other end of the text where it has come to one, and says so.
//
// Its controls are txtFind, txtReplace, txtFindDevnag, txtReplaceDevnag, FindWhere0 to FindWhere2, chkSameCase,
// lblNote, cmdFind, cmdReplace, cmdReplaceAll and cmdExit.
#pragma once

#include "dialogs/FramedDialog.h"

#include <array>
#include <string>

class QCheckBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace tolvan {

class RomanBox;

class frmFindReplace : public FramedDialog {
    Q_OBJECT
  public:
    // `roman` must outlive it.
    frmFindReplace(RomanBox& roman, QWidget* parent);

    // Visible, in front, with the search text ready to be typed: the selected text, if that is of one line. Enter
    // finds.
    void bringUp();

    // Finds the text that was typed last once more, after the selection (before it, when the search goes backwards).
    void findNext();

  signals:
    // How the last search went on, font-encoded; empty if there is nothing to say.
    void noted(const QString& text);

  private:
    enum FindWhere { FromBeginning, FromCaret, Backwards };

    void addTextRow(QGridLayout& grid, const char* name, std::string_view label, QLineEdit*& box);
    void addChoices(QGridLayout& grid);
    void addButtons();

    FindWhere findWhere() const;
    std::string wanted() const;
    void takeSelection();
    void note(std::string_view text);
    void cmdFind();
    void find(FindWhere where, bool afterSelection);
    void uncoverSelection();
    void cmdReplace();
    void cmdReplaceAll();

    RomanBox& roman_;
    QLineEdit* txtFind_ = nullptr;
    QLineEdit* txtReplace_ = nullptr;
    std::array<QRadioButton*, 3> findWhere_{};
    QCheckBox* sameCase_ = nullptr;
    QLabel* lblNote_ = nullptr;
    QPushButton* cmdFind_ = nullptr;
    bool searched_ = false;  // since the place to begin at was chosen
};

}  // namespace tolvan
