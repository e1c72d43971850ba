#include "dialogs/LetterKeys.h"

#include "dialogs/Accessibility.h"
#include "platform/transliteration/UnicodeToRoman.h"

#include <QAbstractButton>
#include <QAction>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>

namespace tolvan {
namespace {

// Small; none for a key that is no letter.
QChar letterOf(const QKeyEvent& key) {
    const bool isLetter = key.key() >= Qt::Key_A && key.key() <= Qt::Key_Z;
    return isLetter ? QChar(key.key()).toLower() : QChar();
}

bool beginsWith(const QString& unicode, QChar letter) {
    const std::string roman = romanOfUnicode(unicode.toStdString());
    const auto first = roman.find_first_not_of(". ");
    return first != std::string::npos && QChar(QLatin1Char(roman[first])).toLower() == letter;
}

}  // namespace

bool takeLetter(QMenu& menu, const QKeyEvent& key) {
    const QChar letter = letterOf(key);
    if (letter.isNull() || (key.modifiers() & ~Qt::ShiftModifier) != Qt::NoModifier) return false;
    QList<QAction*> found;
    for (QAction* action : menu.actions())
        if (action->isVisible() && action->isEnabled() && beginsWith(accessible::unicode(action->text()), letter))
            found += action;
    if (found.isEmpty()) return false;
    menu.setActiveAction(found[(found.indexOf(menu.activeAction()) + 1) % found.size()]);
    if (found.size() == 1) {
        menu.close();
        QMetaObject::invokeMethod(found[0], "trigger", Qt::QueuedConnection);
    }
    return true;
}

bool takeLetter(QWidget& dialog, const QKeyEvent& key) {
    const QChar letter = letterOf(key);
    if (letter.isNull() || key.modifiers() != Qt::AltModifier) return false;
    QList<QWidget*> found;
    for (QWidget* control : dialog.findChildren<QWidget*>()) {
        const bool takes = control->isVisible() && control->isEnabled() && control->focusPolicy() != Qt::NoFocus;
        if (!takes || !beginsWith(control->accessibleName(), letter)) continue;
        if (qobject_cast<QAbstractButton*>(control) != nullptr || qobject_cast<QLineEdit*>(control) != nullptr)
            found += control;
    }
    if (found.isEmpty()) return false;
    QWidget* const chosen = found[(found.indexOf(dialog.focusWidget()) + 1) % found.size()];
    chosen->setFocus(Qt::ShortcutFocusReason);
    auto* const button = qobject_cast<QAbstractButton*>(chosen);
    if (button != nullptr && found.size() == 1) button->click();
    return true;
}

}  // namespace tolvan
