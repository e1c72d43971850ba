// Moves a frameless window and its edges: through the window system, which knows about snapping and other screens;
// where that refuses, and for the keyboard, by hand.
#pragma once

#include <QObject>
#include <QPoint>
#include <QRect>

class QKeyEvent;
class QWidget;

namespace tolvan {

class WindowMover : public QObject {
    Q_OBJECT
  public:
    // For `window`, which owns it.
    explicit WindowMover(QWidget& window);

    // Follows the mouse, whose left button is down at `from` (screen coordinates), with these edges of the window, or
    // with the whole window when there are none, until the button goes up.
    void dragWithMouse(Qt::Edges edges, QPoint from);

    // The arrow keys move the whole window, or its right and lower edge: by one pixel with Ctrl. Enter or a click ends
    // it, Escape takes it back. Under Wayland, which lets no window place itself, only the size can be changed.
    enum class By { Place, Size };
    void moveWithKeyboard(By by);

    bool isByHand() const { return mode_ != Mode::None; }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    enum class Mode { None, Mouse, KeyboardPlace, KeyboardSize };

    void dragByHand(Qt::Edges edges, QPoint from, const QRect& geometry);
    void startByHand(Mode mode);
    void finish();
    void restoreUnder(QPoint pointer);
    void followMouse(QPoint pointer);
    bool handleKey(const QKeyEvent& event);

    QWidget& window_;
    Mode mode_ = Mode::None;
    Qt::Edges edges_;
    QPoint from_;
    QRect original_;
};

}  // namespace tolvan
