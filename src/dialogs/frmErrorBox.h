// Tells what went wrong in a running program and asks whether to go on with it. Its controls are txtError, cmdRun and
// cmdStop, which Enter takes.
#pragma once

#include "dialogs/MessageDialog.h"

#include <cstdint>

namespace tolvan {

// The message of an error number, as a fragment for MessageDialog::setMessage: the message table's text; for a number
// that it does not hold, a general text with the program line `errorLine`.
std::string errorMessage(std::int32_t number, int errorLine);

class frmErrorBox : public MessageDialog {
    Q_OBJECT
  public:
    explicit frmErrorBox(QWidget* parent = nullptr);

    // True: the program is to go on. False also when the box was closed without a button.
    bool decision() const { return decision_; }

  private:
    bool decision_ = false;
};

}  // namespace tolvan
