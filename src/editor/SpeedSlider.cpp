#include "editor/SpeedSlider.h"

#include "dialogs/Accessibility.h"
#include "dialogs/Look.h"
#include "platform/encoding/Deva.h"
#include "platform/fonts/FontEncoding.h"

#include <QHelpEvent>

namespace tolvan {

SpeedSlider::SpeedSlider(QWidget* parent) : QSlider(Qt::Horizontal, parent) {
    setObjectName(QStringLiteral("sldSpeed"));
    setAccessibleName(accessible::unicode("veg"_deva));
    setRange(slowest, fastest);
    setPageStep(5);
    setValue(2);
    setFocusPolicy(Qt::TabFocus);
    setFixedWidth(look::em(6));
    connect(this, &QSlider::valueChanged, this,
            [this] { setAccessibleDescription(accessible::unicode(description())); });
    setAccessibleDescription(accessible::unicode(description()));
}

QString SpeedSlider::description() const {
    return toQString("veg{:} sek<dala "_deva) + QString::number(value()) +
           toQString(value() == 1 ? " Aae¦"_deva : " Aae¦I"_deva);
}

bool SpeedSlider::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QSlider::event(event);
    look::showToolTip(*this, static_cast<QHelpEvent*>(event)->globalPos(), description());
    return true;
}

}  // namespace tolvan
