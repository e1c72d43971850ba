// Asks a question that is answered by yes, no or cancel (also Escape). Its controls are txtQuestion, cmdYes, cmdNo and
// cmdCancel.
#pragma once

#include "dialogs/Answer.h"
#include "dialogs/MessageDialog.h"

class QPushButton;

namespace tolvan {

class frmMQuestionBox : public MessageDialog {
    Q_OBJECT
  public:
    explicit frmMQuestionBox(QWidget* parent = nullptr);

    // No, if the box was closed without a button.
    Answer answer() const { return answer_; }

    // Enter answers no.
    void preferNo();

  private:
    QPushButton* addAnswer(const char* name, std::string_view caption, Answer answer);

    Answer answer_ = Answer::No;
};

}  // namespace tolvan
