// A dialog in the look of the system: caption bar, body, and under it a row of buttons. Its size is what they need.
// Enter takes the button with the focus, at first the first one unless the dialog says otherwise; Escape closes the
// dialog, as its caption bar does.
#pragma once

#include "platform/richtext/StyledText.h"

#include <QDialog>

#include <string_view>

class QBoxLayout;
class QPushButton;

namespace tolvan {

class FramedDialog : public QDialog {
    Q_OBJECT
  protected:
    // `title` in the Devanagari font.
    FramedDialog(std::string_view title, QWidget* parent);

    // Where the dialog's own controls go, from left to right.
    QBoxLayout& body() const { return *body_; }

    // Adds a button at the right of the row.
    QPushButton* addButton(const char* name, std::string_view caption);

    // Alt and a letter go to the control whose caption begins with it.
    void keyPressEvent(QKeyEvent* event) override;

  private:
    QBoxLayout* body_;
    QBoxLayout* buttons_;
};

}  // namespace tolvan
