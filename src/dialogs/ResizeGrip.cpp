#include "dialogs/ResizeGrip.h"

#include "dialogs/Look.h"

#include <QMouseEvent>

namespace tolvan {
namespace {

Qt::CursorShape cursorFor(Qt::Edges edges) {
    if (edges == (Qt::TopEdge | Qt::LeftEdge) || edges == (Qt::BottomEdge | Qt::RightEdge)) return Qt::SizeFDiagCursor;
    if (edges == (Qt::TopEdge | Qt::RightEdge) || edges == (Qt::BottomEdge | Qt::LeftEdge)) return Qt::SizeBDiagCursor;
    return edges & (Qt::LeftEdge | Qt::RightEdge) ? Qt::SizeHorCursor : Qt::SizeVerCursor;
}

}  // namespace

ResizeGrip::ResizeGrip(Qt::Edge edge, QWidget* window) : QWidget(window), edge_(edge) {
    setMouseTracking(true);
    setCursor(cursorFor(edge));
}

void ResizeGrip::place(QSize window, int thickness) {
    const QRect all({}, window);
    switch (edge_) {
        case Qt::LeftEdge:
            setGeometry(0, 0, thickness, all.height());
            break;
        case Qt::RightEdge:
            setGeometry(all.width() - thickness, 0, thickness, all.height());
            break;
        case Qt::TopEdge:
            setGeometry(0, 0, all.width(), thickness);
            break;
        case Qt::BottomEdge:
            setGeometry(0, all.height() - thickness, all.width(), thickness);
            break;
    }
}

Qt::Edges ResizeGrip::edgesAt(QPoint position) const {
    const int corner = look::em(1);
    Qt::Edges edges = edge_;
    if (edge_ == Qt::LeftEdge || edge_ == Qt::RightEdge) {
        if (position.y() < corner) edges |= Qt::TopEdge;
        if (position.y() >= height() - corner) edges |= Qt::BottomEdge;
    } else {
        if (position.x() < corner) edges |= Qt::LeftEdge;
        if (position.x() >= width() - corner) edges |= Qt::RightEdge;
    }
    return edges;
}

void ResizeGrip::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        emit grabbed(edgesAt(event->position().toPoint()), event->globalPosition().toPoint());
}

void ResizeGrip::mouseMoveEvent(QMouseEvent* event) {
    setCursor(cursorFor(edgesAt(event->position().toPoint())));
}

}  // namespace tolvan
