#include "dialogs/WindowMover.h"

#include "dialogs/Look.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWidget>
#include <QWindow>

#include <algorithm>

namespace tolvan {
namespace {

// The geometry after its edges, or all of it, moved by `way`; never smaller or larger than the window may be. The edge
// across stays where it is.
QRect moved(const QRect& from, Qt::Edges edges, QPoint way, QSize least, QSize most) {
    if (!edges) return from.translated(way);
    const int right = edges & Qt::LeftEdge ? -way.x() : edges & Qt::RightEdge ? way.x() : 0;
    const int down = edges & Qt::TopEdge ? -way.y() : edges & Qt::BottomEdge ? way.y() : 0;
    const QSize size(std::clamp(from.width() + right, least.width(), std::max(least.width(), most.width())),
                     std::clamp(from.height() + down, least.height(), std::max(least.height(), most.height())));
    QRect result(from.topLeft(), size);
    if (edges & Qt::LeftEdge) result.moveRight(from.right());
    if (edges & Qt::TopEdge) result.moveBottom(from.bottom());
    return result;
}

// Not so under Wayland, where the compositor alone knows where a window is; it also restores a maximised one.
bool windowsPlaceThemselves() {
    return !QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
}

}  // namespace

WindowMover::WindowMover(QWidget& window) : QObject(&window), window_(window) {}

void WindowMover::dragWithMouse(Qt::Edges edges, QPoint from) {
    if (!edges && window_.isMaximized() && windowsPlaceThemselves()) return restoreUnder(from);
    QWindow* handle = window_.windowHandle();
    if (handle && (edges ? handle->startSystemResize(edges) : handle->startSystemMove())) return;
    dragByHand(edges, from, window_.geometry());
}

void WindowMover::dragByHand(Qt::Edges edges, QPoint from, const QRect& geometry) {
    edges_ = edges;
    from_ = from;
    startByHand(Mode::Mouse);
    original_ = geometry;
}

void WindowMover::moveWithKeyboard(By by) {
    if (by == By::Place && !windowsPlaceThemselves()) return;
    startByHand(by == By::Place ? Mode::KeyboardPlace : Mode::KeyboardSize);
}

void WindowMover::startByHand(Mode mode) {
    finish();
    mode_ = mode;
    original_ = window_.geometry();
    qApp->installEventFilter(this);
    if (mode != Mode::Mouse) window_.setCursor(mode == Mode::KeyboardPlace ? Qt::SizeAllCursor : Qt::SizeFDiagCursor);
}

void WindowMover::finish() {
    if (mode_ == Mode::None) return;
    if (mode_ != Mode::Mouse) window_.unsetCursor();
    mode_ = Mode::None;
    qApp->removeEventFilter(this);
}

// A maximised window that is dragged gets its normal size again, with the pointer over the same share of its caption.
// By hand, because a window manager takes its time to restore it and would start from the wrong place. On Windows it
// has that place at once, and the system goes on, which can snap it elsewhere.
void WindowMover::restoreUnder(QPoint pointer) {
    const double share = double(pointer.x() - window_.x()) / std::max(1, window_.width());
    const int below = pointer.y() - window_.y();
    const QSize size = window_.normalGeometry().size();
    window_.showNormal();
    const QRect geometry({pointer.x() - static_cast<int>(share * size.width()), pointer.y() - below}, size);
    window_.setGeometry(geometry);
    if (QGuiApplication::platformName() == QLatin1String("windows") && window_.windowHandle()->startSystemMove())
        return;
    dragByHand({}, pointer, geometry);
}

void WindowMover::followMouse(QPoint pointer) {
    const QSize least = window_.minimumSize().expandedTo(window_.minimumSizeHint());
    window_.setGeometry(moved(original_, edges_, pointer - from_, least, window_.maximumSize()));
}

bool WindowMover::handleKey(const QKeyEvent& event) {
    const int step = event.modifiers() & Qt::ControlModifier ? 1 : look::em(0.5);
    QPoint way;
    switch (event.key()) {
        case Qt::Key_Left:
            way.rx() = -step;
            break;
        case Qt::Key_Right:
            way.rx() = step;
            break;
        case Qt::Key_Up:
            way.ry() = -step;
            break;
        case Qt::Key_Down:
            way.ry() = step;
            break;
        case Qt::Key_Escape:
            window_.setGeometry(original_);
            finish();
            return true;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            finish();
            return true;
        default:
            return mode_ != Mode::Mouse;
    }
    if (mode_ == Mode::Mouse) return false;
    const Qt::Edges edges = mode_ == Mode::KeyboardSize ? Qt::RightEdge | Qt::BottomEdge : Qt::Edges();
    const QSize least = window_.minimumSize().expandedTo(window_.minimumSizeHint());
    window_.setGeometry(moved(window_.geometry(), edges, way, least, window_.maximumSize()));
    return true;
}

bool WindowMover::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
        case QEvent::ShortcutOverride:  // or a shortcut of the window would take the key
            event->accept();
            return true;
        case QEvent::KeyPress:
            return handleKey(static_cast<QKeyEvent&>(*event));
        case QEvent::MouseMove:
            if (mode_ != Mode::Mouse || !watched->isWidgetType()) return false;
            followMouse(static_cast<QMouseEvent*>(event)->globalPosition().toPoint());
            return true;
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
            if (watched->isWidgetType()) finish();
            return false;
        case QEvent::ApplicationDeactivate:
            finish();
            return false;
        default:
            return false;
    }
}

}  // namespace tolvan
