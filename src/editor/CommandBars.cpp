#include "editor/CommandBars.h"

#include "dialogs/Accessibility.h"
#include "dialogs/Look.h"
#include "editor/Commands.h"
#include "editor/EditorMenu.h"
#include "editor/RecentFiles.h"
#include "platform/fonts/FontEncoding.h"

#include <QAction>
#include <QEvent>
#include <QFile>
#include <QHelpEvent>
#include <QImage>
#include <QMenuBar>
#include <QShortcut>
#include <QToolBar>
#include <QToolButton>

// A static library's resources are linked only where they are asked for by name; the call must stand outside any
// namespace.
static void loadResources() {
    Q_INIT_RESOURCE(editor);
}

namespace tolvan {
namespace {

constexpr int iconSize = 16;  // logical pixels

// The same colours, dark ones light.
QPixmap forDarkGround(QImage picture) {
    picture = picture.convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QColor colour = picture.pixelColor(x, y).toHsl();
            const float lightness = std::max(colour.lightnessF(), 1 - 0.75F * colour.lightnessF());
            picture.setPixelColor(
                x, y, QColor::fromHslF(colour.hslHueF(), colour.hslSaturationF(), lightness, colour.alphaF()));
        }
    }
    return QPixmap::fromImage(picture);
}

QIcon iconOf(const char* key) {
    QIcon icon;
    for (const int size : {16, 32, 64}) {
        const QString file = QStringLiteral(":/tolvan/editor/%1-%2.png").arg(QLatin1String(key)).arg(size);
        if (!QFile::exists(file)) continue;
        if (look::kind() == look::Kind::Light)
            icon.addFile(file);
        else
            icon.addPixmap(forDarkGround(QImage(file)));
    }
    return icon;
}

bool holds(When when, bool isBusy, bool isStanding) {
    switch (when) {
        case When::Always:
            return true;
        case When::Idle:
            return !isBusy;
        case When::Busy:
            return isBusy;
        case When::OnTheWay:
            return isBusy && !isStanding;
        case When::AtRest:
            return !isBusy || isStanding;
    }
    return false;
}

QList<QKeySequence> shortcutsOf(std::string_view key, bool isBusy, bool isStanding) {
    QList<QKeySequence> keys;
    for (const Shortcut& shortcut : shortcuts())
        if (shortcut.key == key && holds(shortcut.when, isBusy, isStanding))
            keys.append(QKeySequence(QLatin1String(shortcut.keys)));
    return keys;
}

// A path that would make the menu too wide loses its middle.
QString recentFileCaption(int slot, const QString& path) {
    QString shown = QFontMetrics(look::controlFont(Font::Latin)).elidedText(path, Qt::ElideMiddle, look::em(50));
    return QStringLiteral("&%1:").arg(slot) + shown.replace(QLatin1Char('&'), QLatin1String("&&"));
}

// Shows the tool tip of a button, and tells when the mouse or the keyboard is on it and when it has left.
class DescribedButton : public QObject {
  public:
    DescribedButton(QToolButton& button, std::function<void(bool)> pointedAt)
        : QObject(&button), button_(button), pointedAt_(std::move(pointedAt)) {
        button.installEventFilter(this);
    }
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::ToolTip) {
            look::showToolTip(button_, static_cast<QHelpEvent*>(event)->globalPos(), button_.toolTip());
            return true;
        }
        if (event->type() == QEvent::Enter || event->type() == QEvent::FocusIn) pointedAt_(true);
        if (event->type() == QEvent::Leave || event->type() == QEvent::FocusOut) pointedAt_(false);
        return false;
    }

  private:
    QToolButton& button_;
    std::function<void(bool)> pointedAt_;
};

}  // namespace

CommandBars::CommandBars(QWidget& window)
    : QObject(&window),
      window_(window),
      menuBar_(new QMenuBar(&window)),
      toolBar_(new QToolBar(&window)),
      barsMenu_(new EditorMenu(&window)) {
    loadResources();
    menuBar_->setObjectName(QStringLiteral("TopMenu"));
    menuBar_->setAccessibleName(accessible::unicode("yadI"_deva));
    menuBar_->setFont(look::controlFont(Font::Devanagari));
    for (const Menu& menu : editorMenus()) addMenu(menu);
    addToolBar();
    addToolBarItem();
    addShortcuts();
    toolBar_->installEventFilter(this);
}

QAction* CommandBars::addAction(const char* key, const QString& caption) {
    auto* action = new QAction(caption, this);
    action->setObjectName(QLatin1String(key));
    action->setIcon(iconOf(key));
    action->setIconVisibleInMenu(true);
    connect(action, &QAction::triggered, this, [this, name = QByteArray(key)] { emit chosen(name); });
    actions_.insert(key, action);
    return action;
}

void CommandBars::addMenu(const Menu& menu) {
    auto* shown = new EditorMenu(menuBar_);
    shown->setObjectName(QLatin1String(menu.key));
    shown->setAccessibleName(accessible::unicode(menu.caption));
    QAction* top = shown->menuAction();
    top->setText(look::captionText(menu.caption));
    menuBar_->addAction(top);
    const QString description = toQString(menu.description);
    connect(shown, &QMenu::aboutToShow, this, [this, description] { emit described(description); });
    connect(shown, &QMenu::aboutToHide, this, [this] { emit described({}); });
    for (const MenuItem& item : menu.items) {
        QAction* action = addAction(item.key, item.caption == "-" ? QString() : look::captionText(item.caption));
        action->setSeparator(item.caption == "-");
        action->setShortcuts(shortcutsOf(item.key, false, false));
        action->setShortcutVisibleInContextMenu(true);
        shown->addAction(action);
    }
    auto* opener = new QShortcut(QKeySequence(QStringLiteral("Alt+") + QLatin1String(menu.accessKey)), &window_);
    connect(opener, &QShortcut::activated, menuBar_, [this, top] { menuBar_->setActiveAction(top); });
}

void CommandBars::addToolBar() {
    toolBar_->setObjectName(QStringLiteral("asxToolbar1"));
    toolBar_->setAccessibleName(accessible::unicode(item(toolBarKey)->text()));
    toolBar_->setIconSize({iconSize, iconSize});
    toolBar_->setToolButtonStyle(Qt::ToolButtonIconOnly);
    toolBar_->setMovable(false);
    if (auto* const more = toolBar_->findChild<QToolButton*>(QStringLiteral("qt_toolbar_ext_button"))) {
        more->setAccessibleName(accessible::unicode("Aa[oI"_deva));
        more->setArrowType(Qt::RightArrow);  // in the colour of text; Qt's own picture is black in every look
    }
    for (const ToolButton& button : toolButtons()) {
        if (button.key == nullptr) {
            toolBar_->addSeparator();
            continue;
        }
        QAction* action = addAction(button.key, look::captionText(button.caption));
        const QString toolTip = toQString(button.toolTip);
        action->setToolTip(toolTip);
        toolBar_->addAction(action);
        auto& control = *qobject_cast<QToolButton*>(toolBar_->widgetForAction(action));
        control.setObjectName(QLatin1String(button.key));
        control.setAccessibleName(accessible::unicode(button.caption));
        control.setAccessibleDescription(accessible::unicode(button.toolTip));
        control.setFocusPolicy(Qt::TabFocus);
        new DescribedButton(control, [this, toolTip](bool on) { emit described(on ? toolTip : QString()); });
    }
}

// It can be asked for on the bars themselves, too.
void CommandBars::addToolBarItem() {
    QAction* action = item(toolBarKey);
    action->setCheckable(true);
    action->setChecked(true);
    barsMenu_->addAction(action);
    for (QWidget* bar : {static_cast<QWidget*>(menuBar_), static_cast<QWidget*>(toolBar_)}) {
        bar->setContextMenuPolicy(Qt::CustomContextMenu);
        connect(bar, &QWidget::customContextMenuRequested, this,
                [this, bar](QPoint at) { barsMenu_->popup(bar->mapToGlobal(at)); });
    }
}

// The key that goes to the menu bar.
void CommandBars::addShortcuts() {
    toMenu_ = new QShortcut(QKeySequence(Qt::Key_F10), &window_);
    connect(toMenu_, &QShortcut::activated, menuBar_,
            [this] { menuBar_->setActiveAction(menuBar_->actions().constFirst()); });
}

// Of two commands with one key only one has it at a time.
void CommandBars::setKeys(bool isBusy, bool isStanding) {
    toMenu_->setEnabled(!isBusy);
    for (const bool isGiven : {false, true})
        for (const Shortcut& shortcut : shortcuts())
            if (shortcut.when != When::Always && holds(shortcut.when, isBusy, isStanding) == isGiven)
                item(shortcut.key)->setShortcuts(shortcutsOf(shortcut.key, isBusy, isStanding));
}

void CommandBars::makeRoomForRun(bool isRunning) {
    const bool isNarrow = toolBar_->sizeHint().width() > window_.width();
    bool isAfterButton = false;
    for (QAction* action : toolBar_->actions()) {
        const bool isOfRun = action->objectName().startsWith(QLatin1String("Run"));
        const bool isUseful = !isRunning || action->isEnabled() || isOfRun;
        if (isNarrow || !isRunning) action->setVisible(action->isSeparator() ? !isRunning || isAfterButton : isUseful);
        isAfterButton = !action->isSeparator() && (isUseful || isAfterButton);
    }
}

QByteArray CommandBars::commandOf(const QKeySequence& keys) const {
    for (const Shortcut& shortcut : shortcuts())
        if (QAction* const action = item(shortcut.key);
            action != nullptr && action->isEnabled() && action->shortcuts().contains(keys))
            return shortcut.key;
    return {};
}

void CommandBars::setEnabled(const char* key, bool enabled) {
    for (QAction* action : actions_.values(key)) action->setEnabled(enabled);
}

QAction* CommandBars::item(const char* key) const {
    const QList<QAction*> actions = actions_.values(key);
    return actions.isEmpty() ? nullptr : actions.constLast();
}

bool CommandBars::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::PaletteChange)
        for (auto action = actions_.cbegin(); action != actions_.cend(); ++action)
            (*action)->setIcon(iconOf(action.key().constData()));
    return QObject::eventFilter(watched, event);
}

bool CommandBars::isEnabled(const char* key) const {
    const QAction* action = item(key);
    return action != nullptr && action->isEnabled();
}

void CommandBars::showRecentFiles(const RecentFiles& files) {
    bool any = false;
    for (int slot = 1; slot <= RecentFiles::slotCount; ++slot) {
        const QString path = files.path(slot);
        QAction* action = item(qPrintable(QStringLiteral("MnuMru%1").arg(slot)));
        action->setText(recentFileCaption(slot, path));
        action->setFont(look::controlFont(Font::Latin));
        const bool shown = !path.trimmed().isEmpty();
        action->setVisible(shown);
        any = any || shown;
    }
    item("mnuSeperator4")->setVisible(any);
}

bool CommandBars::toggleToolBar(const QByteArray& key) {
    QAction* action = item(key.constData());
    if (action == nullptr) return false;
    const bool shown = toolBar_->isHidden();  // not the item's state, which a click has inverted already
    toolBar_->setVisible(shown);
    action->setChecked(shown);
    return shown;
}

}  // namespace tolvan
