// One edge of a resizable window; near its ends it draws the corner. Shows nothing but the mouse pointer over it.
#pragma once

#include <QWidget>

namespace tolvan {

class ResizeGrip : public QWidget {
    Q_OBJECT
  public:
    ResizeGrip(Qt::Edge edge, QWidget* window);

    // Takes its place along a window of this size, whose edges are so thick.
    void place(QSize window, int thickness);

  signals:
    // The mouse, with its left button down at `from` (screen coordinates), takes hold of these edges.
    void grabbed(Qt::Edges edges, QPoint from);

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

  private:
    Qt::Edges edgesAt(QPoint position) const;

    Qt::Edge edge_;
};

}  // namespace tolvan
