// What the message, question and error boxes have in common: a sign and a message that wraps and scrolls. Ctrl+C copies
// the message, in the codes of its fonts.
#pragma once

#include "dialogs/FramedDialog.h"
#include "dialogs/MessageSign.h"

#include <string>
#include <string_view>

namespace tolvan {

class RichTextView;

// The complete rich-text document of a message. `fragment` is rich text with its backslashes and braces escaped; "\f1"
// switches to the Devanagari font, "\f0" to the Latin one, in which it begins.
std::string messageDocument(std::string_view fragment);

class MessageDialog : public FramedDialog {
    Q_OBJECT
  public:
    // The message, a fragment for messageDocument. The box grows with it.
    void setMessage(std::string_view fragment);

  protected:
    // `messageName` is the object name of the control that shows the message.
    MessageDialog(std::string_view title, MessageSign::Kind sign, const char* messageName, QWidget* parent);

    void keyPressEvent(QKeyEvent* event) override;

  private:
    RichTextView* view_;
};

}  // namespace tolvan
