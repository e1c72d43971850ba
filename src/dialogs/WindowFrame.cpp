#include "dialogs/WindowFrame.h"

#include "dialogs/Look.h"
#include "dialogs/ResizeGrip.h"
#include "dialogs/SystemFrame.h"
#include "dialogs/WindowMover.h"
#include "platform/fonts/FontEncoding.h"
#include "platform/richtext/UnicodeText.h"

#include <QCoreApplication>
#include <QPainter>
#include <QPointer>
#include <QShortcut>
#include <QShortcutEvent>
#include <QWidget>

#include <algorithm>

namespace tolvan {
namespace {

constexpr char productName[] = "Tolvan Basic";

QString desktopTitle(StyledView title, const QString& ofFile) {
    std::string latin;
    for (std::size_t i = 0; i < title.size(); ++i)
        if (title.font(i) == Font::Latin) latin += title[i];
    // Without the dash that separates it from the product's name in the window.
    const std::size_t start = std::min(latin.find_first_not_of(" -"), latin.size());
    const QString name = (toQString(std::string_view(latin).substr(start)) + ofFile).trimmed();
    return name.isEmpty() ? QLatin1String(productName) : name + QLatin1String(" - ") + QLatin1String(productName);
}

Qt::WindowFlags frameless(const QWidget& window, WindowFrame::Kind kind) {
    Qt::WindowFlags flags = (window.windowFlags() & Qt::WindowType_Mask) | Qt::FramelessWindowHint |
                            Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;
    if (kind == WindowFrame::Kind::Resizable) flags |= Qt::WindowMinMaxButtonsHint;
    return flags;
}

}  // namespace

WindowFrame::WindowFrame(QWidget& window, Kind kind)
    : QObject(&window),
      window_(window),
      kind_(kind),
      bar_(new CaptionBar(&window, kind == Kind::Resizable)),
      menu_(new SystemMenu(window, kind == Kind::Resizable)),
      mover_(new WindowMover(window)) {
    window.setWindowFlags(frameless(window, kind));
    if (kind == Kind::Resizable) addGrips();
    addShortcuts();
    connect(bar_, &CaptionBar::systemCommand, this, &WindowFrame::perform);
    connect(bar_, &CaptionBar::menuRequested, menu_, &SystemMenu::showAt);
    connect(bar_, &CaptionBar::dragged, mover_, [this](QPoint from) { mover_->dragWithMouse({}, from); });
    connect(bar_, &CaptionBar::doubleClicked, this, &WindowFrame::toggleMaximized);
    connect(menu_, &SystemMenu::systemCommand, this, &WindowFrame::perform);
    connect(menu_, &SystemMenu::userCommand, this, &WindowFrame::userCommand);
    window.installEventFilter(this);
    updateMargins();
    window.setMinimumWidth(bar_->minimumSizeHint().width() + 2 * border());
}

void WindowFrame::setTitle(StyledView title, const QString& name) {
    bar_->setTitle(title, name);
    window_.setWindowTitle(desktopTitle(title, name));
    window_.setAccessibleName(QString::fromStdString(unicodeOf(title)).simplified() + QLatin1Char(' ') + name);
}

void WindowFrame::perform(SystemCommand command) {
    switch (command) {
        case SystemCommand::Restore:
            window_.showNormal();
            break;
        case SystemCommand::Move:
            mover_->moveWithKeyboard(WindowMover::By::Place);
            break;
        case SystemCommand::Size:
            mover_->moveWithKeyboard(WindowMover::By::Size);
            break;
        case SystemCommand::Minimize:
            window_.showMinimized();
            break;
        case SystemCommand::Maximize:
            window_.showMaximized();
            break;
        case SystemCommand::Close:
            window_.close();
            break;
    }
}

// Window managers do the same with these keys; where there is none, or it leaves them to the window, they are here.
void WindowFrame::addShortcuts() {
    auto* close = new QShortcut(QKeySequence(Qt::ALT | Qt::Key_F4), &window_);
    connect(close, &QShortcut::activated, this, [this] { perform(SystemCommand::Close); });
    menuShortcut_ = new QShortcut(QKeySequence(Qt::ALT | Qt::Key_Space), &window_);
    connect(menuShortcut_, &QShortcut::activated, this,
            [this] { menu_->showAt(bar_->mapToGlobal(bar_->rect().bottomLeft())); });
}

void WindowFrame::addGrips() {
    for (const Qt::Edge edge : {Qt::LeftEdge, Qt::RightEdge, Qt::TopEdge, Qt::BottomEdge}) {
        auto* grip = new ResizeGrip(edge, &window_);
        connect(grip, &ResizeGrip::grabbed, mover_, &WindowMover::dragWithMouse);
        grips_.append(grip);
    }
}

void WindowFrame::toggleMaximized() {
    if (kind_ == Kind::Fixed) return;
    perform(window_.isMaximized() ? SystemCommand::Restore : SystemCommand::Maximize);
}

int WindowFrame::border() const {
    return window_.isMaximized() ? 0 : normalBorder();
}

int WindowFrame::normalBorder() const {
    return kind_ == Kind::Resizable ? std::max(4, look::em(0.25)) : 1;
}

QMargins WindowFrame::marginsWith(int border) const {
    return {border, border + bar_->minimumSizeHint().height(), border, border};
}

void WindowFrame::updateMargins() {
    const int edge = border();
    window_.setContentsMargins(marginsWith(edge));
    bar_->setMaximized(window_.isMaximized());
    for (ResizeGrip* grip : grips_) grip->setVisible(edge > 0);
    layOut();
}

void WindowFrame::layOut() {
    const int edge = border();
    bar_->setGeometry(edge, edge, window_.width() - 2 * edge, bar_->minimumSizeHint().height());
    for (ResizeGrip* grip : grips_) grip->place(window_.size(), edge);
}

void WindowFrame::paintBorder() {
    QPainter painter(&window_);
    const bool active = bar_->isActive();
    const QRect inner = window_.contentsRect();
    painter.setClipRegion(QRegion(window_.rect()) - inner);
    painter.fillRect(window_.rect(), active ? look::colours().captionActive : look::colours().captionInactive);
    painter.setPen(active ? look::colours().frameActive : look::colours().frameInactive);
    if (border() > 0) painter.drawRect(window_.rect().adjusted(0, 0, -1, -1));
}

bool WindowFrame::eventFilter(QObject* watched, QEvent* event) {
    if (watched != &window_) return false;
    switch (event->type()) {
        case QEvent::WindowActivate:
        case QEvent::WindowDeactivate:
            bar_->setActive(event->type() == QEvent::WindowActivate);
            window_.update();
            break;
        case QEvent::WinIdChange:
            systemframe::make(window_, kind_ == Kind::Resizable, [shortcut = QPointer(menuShortcut_)] {
                if (!shortcut) return;
                // By this event a menu bar learns, too, that Alt was not pressed for it.
                QShortcutEvent pressed(shortcut->key(), 0);
                QCoreApplication::sendEvent(shortcut, &pressed);
            });
            [[fallthrough]];
        case QEvent::PaletteChange:
            systemframe::setDark(window_, look::colours().background.lightness() < 128);
            break;
        case QEvent::WindowStateChange:
            updateMargins();
            break;
        case QEvent::Resize:
            layOut();
            break;
        case QEvent::Paint:
            paintBorder();
            break;
        default:
            break;
    }
    return false;
}

}  // namespace tolvan
