#include "runtime/InputBox.h"

#include "platform/encoding/Windows1252.h"
#include "platform/fonts/FontEncoding.h"
#include "runtime/ConsoleFonts.h"

#include <QKeyEvent>
#include <QValidator>

#include <algorithm>

namespace tolvan {
namespace {

// Drops characters that 8-bit text does not have.
class EightBitText : public QValidator {
  public:
    using QValidator::QValidator;

    State validate(QString& text, int& caret) const override {
        const auto foreign = [](QChar character) { return !unicodeToWindows1252(character.unicode()); };
        const QStringView before = QStringView(text).left(caret);
        const auto droppedBefore = std::count_if(before.begin(), before.end(), foreign);
        text.removeIf(foreign);
        caret -= static_cast<int>(droppedBefore);
        return Acceptable;
    }
};

// Backspace, Enter and control characters are characters here; arrows and function keys are none.
bool standsForCharacter(const QKeyEvent& key) {
    return !key.text().isEmpty() || key.key() == Qt::Key_Backspace || key.key() == Qt::Key_Return ||
           key.key() == Qt::Key_Enter ||
           (key.modifiers().testFlag(Qt::ControlModifier) && key.key() >= Qt::Key_A && key.key() <= Qt::Key_Z);
}

}  // namespace

InputBox::InputBox(QWidget* parent) : QLineEdit(parent) {
    setFont(consoleFont(Font::Latin));
    setValidator(new EightBitText(this));
    setContextMenuPolicy(Qt::NoContextMenu);
}

std::string InputBox::roman() const {
    return toFontEncoded(text());
}

void InputBox::fitText(int mostWidth) {
    constexpr int frame = 12;  // with the caret
    const int wanted = fontMetrics().horizontalAdvance(QStringLiteral("    ") + text()) + frame;
    resize(std::min(wanted, mostWidth), sizeHint().height());
}

void InputBox::keyPressEvent(QKeyEvent* event) {
    if (text().size() > mostCharacters && standsForCharacter(*event)) return;
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        emit entered();
        return;
    }
    QLineEdit::keyPressEvent(event);
}

void InputBox::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    emit focusLost();
}

}  // namespace tolvan
