#include "editor/panes/ProgramBox.h"

#include "editor/panes/ShownText.h"
#include "platform/fonts/Fonts.h"

namespace tolvan {

ProgramBox::ProgramBox(QWidget* parent) : TextPane(parent) {
    setReadOnly(true);
    setFont(qtFont(Font::Devanagari, 16));
}

void ProgramBox::setText(const StyledText& text) {
    text_ = text;
    setPlainText(toShown(text.text()).replace(toShown("\r\n"), QStringLiteral("\n")));
}

}  // namespace tolvan
