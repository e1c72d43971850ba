// The preferences: what happens before a run, the recent files, and the caption of the program in the editor.
//
// Its controls are SSTab1 with a box for each preference (see SettingsReader.h) and cmdClearMRU on the first tab,
// lblCaption, txtCaption and lblCaptionDevnag on the second, a button for each look on the third, and below them cmdOK,
// cmdApply and cmdCancel.
#pragma once

#include "dialogs/FramedDialog.h"

class QCheckBox;
class QLineEdit;
class QRadioButton;
class QWidget;

namespace tolvan {

class frmEditor;

class frmPreferences : public FramedDialog {
    Q_OBJECT
  public:
    // `editor` must outlive it.
    explicit frmPreferences(frmEditor& editor);

  private:
    QWidget* runPage();
    QWidget* programPage();
    QWidget* lookPage();
    void addButtons();

    void apply();
    void applyCaption();
    void cmdClearMRU();

    frmEditor& editor_;
    QList<QCheckBox*> boxes_;     // in the order of their table
    QList<QRadioButton*> looks_;  // the same
    QLineEdit* txtCaption_ = nullptr;
    QString appliedCaption_;
};

// Shows them until they are closed; for the editor's command.
void showPreferences(frmEditor& editor);

}  // namespace tolvan
