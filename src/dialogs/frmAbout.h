// Tells the product's name and version. Its controls are cmdSysInfo, which starts the platform's system-information
// tool, and cmdOK.
#pragma once

#include "dialogs/FramedDialog.h"

namespace tolvan {

class frmAbout : public FramedDialog {
    Q_OBJECT
  public:
    explicit frmAbout(QWidget* parent = nullptr);

  private:
    void showSystemInformation();
};

// Shows it until it is closed.
void showAbout(QWidget* parent);

}  // namespace tolvan
