#include "editor/panes/LineMarkShape.h"

#include "dialogs/Look.h"

#include <QPainter>

namespace tolvan {

void drawLineMark(QPainter& painter, const QRectF& area, bool isError) {
    const qreal radius = look::em(0.25);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(isError ? look::colours().error : look::colours().advice, look::em() / 10.0));
    painter.setBrush(isError ? QBrush(look::colours().error) : QBrush(Qt::NoBrush));
    painter.drawEllipse(area.center(), radius, radius);
    painter.restore();
}

}  // namespace tolvan
