// The Roman text of a line edit, for DevanagariInput.
#pragma once

#include "platform/devanagariinput/DevanagariInput.h"

#include <QLineEdit>

namespace tolvan {

class LineEditText : public RomanTextAtCaret {
  public:
    // With more than `mostCharacters` in it the box takes no key any more.
    LineEditText(QLineEdit& box, qsizetype mostCharacters) : box_(box), mostCharacters_(mostCharacters) {}

    bool takesText() const override;
    bool hasSelection() const override { return box_.hasSelectedText(); }
    QString beforeCaret() const override { return box_.text().left(box_.cursorPosition()); }
    bool isInSpan() const override { return beforeCaret().count(u'#') % 2 != 0; }
    void replace(qsizetype length, const QString& text, UndoStep step) override;
    bool joinsUndoSteps() const override { return false; }

  private:
    QLineEdit& box_;
    qsizetype mostCharacters_;
};

}  // namespace tolvan
