// Asks a question that is answered by yes, no or cancel (also Escape). Its controls are txtQuestion, cmdYes, cmdNo and
// cmdCancel.
#pragma once

#include "dialogs/MessageDialog.h"

class QPushButton;

namespace tolvan {

class frmMQuestionBox : public MessageDialog {
    Q_OBJECT
  public:
    explicit frmMQuestionBox(QWidget* parent = nullptr);

    // 1: yes, 0: no, or closed without a button; -1: cancel.
    int answer() const { return answer_; }

    // Enter answers no.
    void preferNo();

  private:
    QPushButton* addAnswer(const char* name, std::string_view caption, int answer);

    int answer_ = 0;
};

}  // namespace tolvan
