#include "editor/panes/LineMarkShape.h"

#include "dialogs/Look.h"
#include "editor/panes/PaneColours.h"

#include <QPainter>

namespace tolvan {

void drawLineMark(QPainter& painter, const QRectF& area, bool isError) {
    const qreal radius = look::em(0.25);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(isError ? pane_colours::error : pane_colours::advice, look::em() / 10.0));
    painter.setBrush(isError ? QBrush(pane_colours::error) : QBrush(Qt::NoBrush));
    painter.drawEllipse(area.center(), radius, radius);
    painter.restore();
}

}  // namespace tolvan
