#include "dialogs/CaptionButton.h"

#include "dialogs/Look.h"

#include <QPainter>

#include <algorithm>

namespace tolvan {

CaptionButton::CaptionButton(Sign sign, QWidget* parent) : QAbstractButton(parent), sign_(sign) {
    setFocusPolicy(Qt::NoFocus);
    setAttribute(Qt::WA_Hover);
}

void CaptionButton::setSign(Sign sign) {
    sign_ = sign;
    update();
}

void CaptionButton::setActive(bool active) {
    active_ = active;
    update();
}

QSize CaptionButton::sizeHint() const {
    return {sign_ == Sign::Icon ? look::em(1.9) : look::em(2.4), look::em(1.7)};
}

void CaptionButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (sign_ == Sign::Icon) {
        const int side = std::min(look::em(1.2), height());
        window()->windowIcon().paint(&painter, QRect((width() - side) / 2, (height() - side) / 2, side, side));
        return;
    }
    const bool hot = underMouse() || isDown();
    if (hot)
        painter.fillRect(rect(),
                         sign_ == Sign::Close ? look::colours().closeHover : look::colours().accentLight.darker(105));
    const QColor colour = hot && sign_ == Sign::Close ? look::colours().textOnClose
                          : active_                   ? look::colours().text
                                                      : look::colours().dimText;
    painter.setPen(QPen(colour, std::max(1.2, look::em() / 14.0), Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    painter.setRenderHint(QPainter::Antialiasing);
    paintSign(painter);
}

void CaptionButton::paintSign(QPainter& painter) const {
    const qreal half = look::em(0.6) / 2.0;
    const QPointF middle = QRectF(rect()).center();
    const QRectF box(middle.x() - half, middle.y() - half, 2 * half, 2 * half);
    switch (sign_) {
        case Sign::Minimize:
            painter.drawLine(QPointF(box.left(), middle.y()), QPointF(box.right(), middle.y()));
            break;
        case Sign::Maximize:
            painter.drawRect(box);
            break;
        case Sign::Restore: {
            const qreal shift = half / 2;
            painter.drawRect(box.adjusted(0, shift, -shift, 0));
            const QPointF behind[] = {{box.left() + shift, box.top() + shift},
                                      {box.left() + shift, box.top()},
                                      {box.right(), box.top()},
                                      {box.right(), box.bottom() - shift},
                                      {box.right() - shift, box.bottom() - shift}};
            painter.drawPolyline(behind, 5);
            break;
        }
        case Sign::Close:
            painter.drawLine(box.topLeft(), box.bottomRight());
            painter.drawLine(box.topRight(), box.bottomLeft());
            break;
        case Sign::Icon:
            break;
    }
}

}  // namespace tolvan
