#include "dialogs/SystemMenu.h"

#include "dialogs/Accessibility.h"
#include "dialogs/LetterKeys.h"
#include "dialogs/Look.h"
#include "platform/encoding/Deva.h"

namespace tolvan {
namespace {

const struct {
    SystemCommand command;
    std::string_view caption;
    bool forFixedToo;
} commands[] = {
    {SystemCommand::Restore, "saxar[ kr"_deva, false},
    {SystemCommand::Move, "halv"_deva, true},
    {SystemCommand::Size, "Aakar"_deva, false},
    {SystemCommand::Minimize, "kmIt kmI kr"_deva, false},
    {SystemCommand::Maximize, "jaStIt jaSt kr"_deva, false},
    {SystemCommand::Close, "b<d kr"_deva, true},
};

}  // namespace

SystemMenu::SystemMenu(QWidget& window, bool resizable) : QMenu(&window), window_(window) {
    setFont(look::controlFont(Font::Devanagari));
    setAccessibleName(accessible::unicode("iofkIcI yadI"_deva));
    for (const auto& [command, caption, forFixedToo] : commands) {
        if (!resizable && !forFixedToo) continue;
        if (command == SystemCommand::Close) addSeparator();
        QAction* action = addAction(look::captionText(caption));
        action->setData(static_cast<int>(command));
        connect(action, &QAction::triggered, this, [this, chosen = command] { emit systemCommand(chosen); });
    }
    connect(this, &QMenu::aboutToShow, this, &SystemMenu::greyByState);
}

void SystemMenu::addCommand(std::string_view caption, const QByteArray& key) {
    if (!std::exchange(hasOwnCommands_, true)) addSeparator();
    QAction* action = addAction(look::captionText(caption));
    connect(action, &QAction::triggered, this, [this, key] { emit userCommand(key); });
}

QAction* SystemMenu::item(SystemCommand command) const {
    for (QAction* action : actions())
        if (action->data() == QVariant(static_cast<int>(command))) return action;
    return nullptr;
}

void SystemMenu::showAt(QPoint global) {
    popup(global);
    for (QAction* action : actions()) {
        if (!action->isEnabled() || action->isSeparator()) continue;
        setActiveAction(action);
        return;
    }
}

void SystemMenu::greyByState() {
    const bool maximized = window_.isMaximized();
    const auto enable = [this](SystemCommand command, bool enabled) {
        if (QAction* action = item(command)) action->setEnabled(enabled);
    };
    enable(SystemCommand::Restore, maximized);
    enable(SystemCommand::Move, !maximized);
    enable(SystemCommand::Size, !maximized);
    enable(SystemCommand::Maximize, !maximized);
}

void SystemMenu::keyPressEvent(QKeyEvent* event) {
    if (!takeLetter(*this, *event)) QMenu::keyPressEvent(event);
}

}  // namespace tolvan
