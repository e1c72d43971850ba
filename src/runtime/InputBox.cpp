#include "runtime/InputBox.h"

#include "platform/devanagariinput/LineEditText.h"
#include "platform/encoding/Windows1252.h"
#include "platform/fonts/FontEncoding.h"
#include "runtime/ConsoleFonts.h"

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QValidator>

#include <algorithm>

namespace tolvan {
namespace {

// Backspace, Enter and control characters are characters here; arrows and function keys are none. Some systems give
// Delete a text.
bool standsForCharacter(const QKeyEvent& key) {
    if (key.key() == Qt::Key_Delete || key.matches(QKeySequence::Copy)) return false;
    return !key.text().isEmpty() || key.key() == Qt::Key_Backspace || key.key() == Qt::Key_Return ||
           key.key() == Qt::Key_Enter ||
           (key.modifiers().testFlag(Qt::ControlModifier) && key.key() >= Qt::Key_A && key.key() <= Qt::Key_Z);
}

}  // namespace

// What the box takes of a text that was changed, in whichever way.
class InputBox::Text : public QValidator {
  public:
    explicit Text(InputBox& box) : QValidator(&box), box_(box) {}

    // What was put in ends at the caret.
    State validate(QString& text, int& caret) const override {
        dropForeign(text, caret);
        const qsizetype most = box_.isTyping_ ? mostCharacters + 1 : std::max<qsizetype>(mostCharacters, before_);
        const qsizetype excess = std::min<qsizetype>(text.size() - most, caret);
        if (excess > 0) {
            text.remove(caret - excess, excess);
            caret -= static_cast<int>(excess);
        }
        before_ = text.size();
        if (excess > 0) QMetaObject::invokeMethod(&box_, &InputBox::wasCut, Qt::QueuedConnection);
        return Acceptable;
    }

  private:
    // Characters that 8-bit text does not have.
    static void dropForeign(QString& text, int& caret) {
        const auto foreign = [](QChar character) { return !unicodeToWindows1252(character.unicode()); };
        const QStringView before = QStringView(text).left(caret);
        caret -= static_cast<int>(std::count_if(before.begin(), before.end(), foreign));
        text.removeIf(foreign);
    }

    InputBox& box_;
    mutable qsizetype before_ = 0;  // characters that the box had
};

InputBox::InputBox(QWidget* parent) : QLineEdit(parent) {
    setFont(consoleFont(Font::Latin));
    setValidator(new Text(*this));
    setContextMenuPolicy(Qt::NoContextMenu);
    auto* const typed = new DevanagariInput(*this, std::make_unique<LineEditText>(*this, mostCharacters));
    connect(typed, &DevanagariInput::refused, this, &InputBox::refused);
}

std::string InputBox::roman() const {
    return toFontEncoded(text());
}

void InputBox::fitText(int mostWidth) {
    constexpr int frame = 12;  // with the caret
    mostWidth_ = mostWidth;
    const int wanted = fontMetrics().horizontalAdvance(QStringLiteral("    ") + text() + composed_) + frame;
    resize(std::min(wanted, mostWidth), sizeHint().height());
}

void InputBox::keyPressEvent(QKeyEvent* event) {
    if (text().size() > mostCharacters && standsForCharacter(*event)) return;
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        emit entered();
        return;
    }
    isTyping_ = !event->matches(QKeySequence::Paste);
    QLineEdit::keyPressEvent(event);
    isTyping_ = false;
}

void InputBox::inputMethodEvent(QInputMethodEvent* event) {
    composed_ = event->preeditString();
    QLineEdit::inputMethodEvent(event);
    fitText(mostWidth_);
}

void InputBox::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    emit focusLost();
}

}  // namespace tolvan
