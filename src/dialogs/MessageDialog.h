// What the message, question and error boxes have in common: a sign and a message that wraps and scrolls. Ctrl+C copies
// the message, in the codes of its fonts.
#pragma once

#include "dialogs/FramedDialog.h"
#include "dialogs/MessageSign.h"

#include <string_view>

namespace tolvan {

class RichTextView;

class MessageDialog : public FramedDialog {
    Q_OBJECT
  public:
    // The message: rich text with its backslashes and braces escaped, in which "\f1" switches to the Devanagari font
    // and "\f0" to the Latin one, in which it begins. The box grows with it.
    void setMessage(std::string_view fragment);

  protected:
    // `messageName` is the object name of the control that shows the message.
    MessageDialog(std::string_view title, MessageSign::Kind sign, const char* messageName, QWidget* parent);

    void keyPressEvent(QKeyEvent* event) override;

  private:
    RichTextView* view_;
};

}  // namespace tolvan
