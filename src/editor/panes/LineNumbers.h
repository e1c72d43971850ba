// The numbers of the lines, left of a pane's text, in the digits of the Devanagari font, and the marks beside them:
// what the guide found, where a program is to stand still (a click says so), and before which line it stands.
#pragma once

#include <QWidget>

namespace tolvan {

class TextPane;

class LineNumbers : public QWidget {
    Q_OBJECT
  public:
    // Stands in the pane, which owns it.
    explicit LineNumbers(TextPane& pane);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void fit();
    void paintLine(QPainter& painter, int line, qreal top);
    void paintPass(QPainter& painter, int pass, const QRectF& shield);
    void follow(const QRect& changed, int scrolledBy);
    void updateLines(int one, int other);

    TextPane& pane_;
    QFont font_;
};

}  // namespace tolvan
