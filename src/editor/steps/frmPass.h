// Asks at which pass of a line a program is to stand still.
#pragma once

#include "dialogs/FramedDialog.h"

class QSpinBox;

namespace tolvan {

class frmPass : public FramedDialog {
    Q_OBJECT
  public:
    // `pass`: the one so far; 0: none.
    frmPass(int line, int pass, QWidget* parent);

    int pass() const;

  private:
    QSpinBox* txtPass_;
};

}  // namespace tolvan
