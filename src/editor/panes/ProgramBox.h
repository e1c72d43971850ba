// Shows a program text: Devanagari words in "Sanskrit 1.2", Latin text in "Times New Roman". It is only read.
#pragma once

#include "editor/panes/TextPane.h"
#include "platform/richtext/StyledText.h"

namespace tolvan {

class ProgramBox : public TextPane {
    Q_OBJECT
  public:
    explicit ProgramBox(QWidget* parent = nullptr);

    // Lines are parted by CR LF.
    void setText(const StyledText& text);
    StyledText text() const { return text_; }

  private:
    StyledText text_;
};

}  // namespace tolvan
