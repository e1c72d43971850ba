#include "editor/EditorMenu.h"

#include "dialogs/LetterKeys.h"
#include "dialogs/Look.h"

#include <QPainter>
#include <QStyleOptionMenuItem>

namespace tolvan {

EditorMenu::EditorMenu(QWidget* parent) : QMenu(parent) {
    setFont(look::controlFont(Font::Devanagari));
    setStyleSheet(QStringLiteral("QMenu::icon { padding-left: 0.6em; }"));
}

// The width of the shortcut is reserved by the menu itself; here its text is kept from being drawn in the caption's
// font.
void EditorMenu::initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const {
    QMenu::initStyleOption(option, action);
    option->text = option->text.section(QLatin1Char('\t'), 0, 0);
}

void EditorMenu::paintEvent(QPaintEvent* event) {
    QMenu::paintEvent(event);
    QPainter painter(this);
    painter.setFont(look::controlFont(Font::Latin));
    for (const QAction* action : actions()) {
        if (!action->isVisible() || action->shortcut().isEmpty()) continue;
        painter.setPen(action->isEnabled() ? look::colours().dimText : look::colours().greyedText);
        const QRect area = actionGeometry(const_cast<QAction*>(action)).adjusted(0, 0, -look::em(1), 0);
        painter.drawText(area, Qt::AlignRight | Qt::AlignVCenter,
                         action->shortcut().toString(QKeySequence::NativeText));
    }
}

void EditorMenu::keyPressEvent(QKeyEvent* event) {
    if (!takeLetter(*this, *event)) QMenu::keyPressEvent(event);
}

}  // namespace tolvan
