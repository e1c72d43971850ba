// The menu bar and the toolbar of the editor, built from the tables of Commands.h. They only say which key was chosen.
#pragma once

#include <QKeySequence>
#include <QMultiHash>
#include <QObject>

#include <array>

class QAction;
class QMenu;
class QMenuBar;
class QShortcut;
class QToolBar;

namespace tolvan {

struct Menu;
class RecentFiles;

class CommandBars : public QObject {
    Q_OBJECT
  public:
    // For `window`, which owns the bars and lays them out.
    explicit CommandBars(QWidget& window);

    QMenuBar* menuBar() const { return menuBar_; }
    QToolBar* toolBar() const { return toolBar_; }

    // In the menu and on the toolbar, and with it the shortcut.
    void setEnabled(const char* key, bool enabled);
    bool isEnabled(const char* key) const;
    // A program is under way, and whether it stands still: gives the commands the keys that they have then.
    void setKeys(bool isBusy, bool isStanding);
    // Where the toolbar is too narrow, only the buttons that can be used while a program runs stand there; or all
    // again.
    void makeRoomForRun(bool isRunning);
    // The command that a key would be for; empty if it is for none, or for one that cannot be done now.
    QByteArray commandOf(const QKeySequence& keys) const;

    // The menu's item of a command or separator.
    QAction* item(const char* key) const;

    void showRecentFiles(const RecentFiles& files);

    // Shows or hides the bar that a key names, and checks its item to match; true if it is shown now.
    bool toggleToolBar(const QByteArray& key);

  signals:
    void chosen(const QByteArray& key);
    // A menu was opened or a button pointed at: what is in it, font-encoded. Empty when that is over.
    void described(const QString& text);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void addMenu(const Menu& menu);
    void addToolBar();
    void addToolBarItem();
    void addShortcuts();
    QAction* addAction(const char* key, const QString& caption);

    QWidget& window_;
    QMenuBar* menuBar_;
    QToolBar* toolBar_;
    QMenu* barsMenu_;
    QShortcut* toMenu_ = nullptr;               // the key that goes to the menu bar
    QMultiHash<QByteArray, QAction*> actions_;  // the last one of a key, as values() gives it, is the menu's
};

}  // namespace tolvan
