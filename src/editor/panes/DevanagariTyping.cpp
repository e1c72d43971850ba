#include "editor/panes/DevanagariTyping.h"

#include "editor/panes/RomanBox.h"
#include "editor/panes/RomanInput.h"

#include <QTextBlock>

namespace tolvan {
namespace {

class RomanBoxText : public RomanTextAtCaret {
  public:
    RomanBoxText(RomanBox& roman, const RomanInput& input) : roman_(roman), input_(input) {}

    bool takesText() const override { return !roman_.isLocked(); }
    bool hasSelection() const override { return roman_.textCursor().hasSelection(); }
    QString beforeCaret() const override {
        const QTextCursor caret = roman_.textCursor();
        return caret.block().text().left(caret.positionInBlock());
    }
    bool isInSpan() const override { return input_.caretIsInSpan(); }
    void replace(qsizetype length, const QString& text, UndoStep step) override {
        roman_.leaveMark();
        QTextCursor caret = roman_.textCursor();
        if (step == UndoStep::Last)
            caret.joinPreviousEditBlock();
        else
            caret.beginEditBlock();
        if (length > 0) caret.setPosition(caret.position() - static_cast<int>(length), QTextCursor::KeepAnchor);
        caret.insertText(text);
        caret.endEditBlock();
        roman_.setTextCursor(caret);
        roman_.ensureCursorVisible();
    }
    bool joinsUndoSteps() const override { return true; }

  private:
    RomanBox& roman_;
    const RomanInput& input_;
};

}  // namespace

DevanagariTyping::DevanagariTyping(RomanBox& roman, const RomanInput& input)
    : DevanagariInput(roman, std::make_unique<RomanBoxText>(roman, input)) {
    connect(this, &DevanagariInput::refused, &roman, &RomanBox::characterRefused);
}

}  // namespace tolvan
