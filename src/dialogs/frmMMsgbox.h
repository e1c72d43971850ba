// Shows a message until it is put away. Its controls are txtMessage and cmdOK.
#pragma once

#include "dialogs/MessageDialog.h"

namespace tolvan {

class frmMMsgbox : public MessageDialog {
    Q_OBJECT
  public:
    explicit frmMMsgbox(QWidget* parent = nullptr);
};

}  // namespace tolvan
