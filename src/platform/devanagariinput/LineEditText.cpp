#include "platform/devanagariinput/LineEditText.h"

namespace tolvan {

bool LineEditText::takesText() const {
    return box_.isEnabled() && !box_.isReadOnly() && box_.text().size() <= mostCharacters_;
}

void LineEditText::replace(qsizetype length, const QString& text, UndoStep) {
    if (length > 0) {
        const int caret = box_.cursorPosition();
        box_.setSelection(caret - static_cast<int>(length), static_cast<int>(length));
    }
    if (!text.isEmpty())
        box_.insert(text);
    else if (box_.hasSelectedText())
        box_.del();
}

}  // namespace tolvan
