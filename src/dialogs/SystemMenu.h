// The system menu of a window, in Marathi: what can be done with the window as a whole, and what the window adds.
#pragma once

#include <QMenu>

#include <string_view>

namespace tolvan {

enum class SystemCommand { Restore, Move, Size, Minimize, Maximize, Close };

class SystemMenu : public QMenu {
    Q_OBJECT
  public:
    // Of `window`, which owns it. A window that cannot be resized has only the items to move and to close it.
    SystemMenu(QWidget& window, bool resizable);

    // Adds an item below the others. Choosing it emits userCommand with `key`.
    void addCommand(std::string_view caption, const QByteArray& key);

    // The item of a command; null where this window does not have it.
    QAction* item(SystemCommand command) const;

    // Shows it with its upper left corner there and the first item chosen, for the keyboard.
    void showAt(QPoint global);

  signals:
    void systemCommand(tolvan::SystemCommand command);
    void userCommand(const QByteArray& key);

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void greyByState();

    QWidget& window_;
    bool hasOwnCommands_ = false;
};

}  // namespace tolvan
