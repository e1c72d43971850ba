// The numbers of the lines, left of a pane's text, in the digits of the Devanagari font.
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
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void fit();
    void follow(const QRect& changed, int scrolledBy);

    TextPane& pane_;
    QFont font_;
};

}  // namespace tolvan
