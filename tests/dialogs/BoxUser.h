// Plays the user of a modal box: waits until one is up and active, then acts on it with real events.
#pragma once

#include <QApplication>
#include <QDialog>
#include <QTest>
#include <QTimer>

#include <functional>

namespace tolvan {

class BoxUser {
  public:
    using Action = std::function<void(QDialog& box)>;

    explicit BoxUser(Action action) : action_(std::move(action)) {
        QObject::connect(&timer_, &QTimer::timeout, [this] { lookForBox(); });
        timer_.start(5);
    }

    // Whether a box came up, and the action alone closed it.
    bool acted() const { return acted_ && !gaveUp_; }

  private:
    void lookForBox() {
        auto* box = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (box && box->isActiveWindow() && !acted_) {
            acted_ = true;
            action_(*box);
        } else if (box && acted_ && ++idle_ > 400) {
            gaveUp_ = true;
            box->reject();
        }
    }

    Action action_;
    QTimer timer_;
    bool acted_ = false;
    bool gaveUp_ = false;
    int idle_ = 0;
};

template <class Widget = QWidget>
Widget& control(const QWidget& box, const char* name) {
    auto* found = box.findChild<Widget*>(QLatin1String(name));
    if (!found) qFatal("no control %s", name);
    return *found;
}

// Presses a key as the window system reports it, so that shortcuts take part.
inline void press(QWidget& window, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(window.windowHandle(), key, modifiers);
}

inline void clickOn(QWidget& widget) {
    QWidget& window = *widget.window();
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, widget.mapTo(&window, widget.rect().center()));
}

}  // namespace tolvan
