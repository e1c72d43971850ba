#include "editor/panes/ZoomTogether.h"

#include "editor/panes/TextPane.h"

#include <QWheelEvent>

#include <algorithm>

namespace tolvan {
namespace {

constexpr int step = 10;

}  // namespace

ZoomTogether::ZoomTogether(TextPane& first, TextPane& second) : first_(first), second_(second) {
    for (TextPane* pane : {&first, &second}) pane->viewport()->installEventFilter(this);
}

void ZoomTogether::setZoom(int percent) {
    percent = std::clamp(percent, least, most);
    if (percent == zoom_) return;
    zoom_ = percent;
    first_.setZoom(percent);
    second_.setZoom(percent);
    emit zoomChanged(percent);
}

void ZoomTogether::zoomBySteps(int steps) {
    setZoom(zoom_ + steps * step);
}

// Touch pads turn in small angles.
void ZoomTogether::zoomByWheel(int angle) {
    wheelAngle_ += angle;
    const int steps = wheelAngle_ / QWheelEvent::DefaultDeltasPerStep;
    wheelAngle_ -= steps * QWheelEvent::DefaultDeltasPerStep;
    if (steps != 0) zoomBySteps(steps);
}

bool ZoomTogether::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Wheel) {
        const auto* wheel = static_cast<QWheelEvent*>(event);
        if (wheel->modifiers() == Qt::ControlModifier) {
            zoomByWheel(wheel->angleDelta().y());
            return true;
        }
    }
    return QObject::eventFilter(watched, event);
}

}  // namespace tolvan
