// Three quiet lines in an empty Roman pane that say what to do. The first letter takes them away.
#pragma once

#include <QWidget>

namespace tolvan {

class RomanBox;

class EmptyHint : public QWidget {
    Q_OBJECT
  public:
    // Stands in the pane, which owns it; the mouse does not notice it.
    explicit EmptyHint(RomanBox& roman);

  protected:
    void paintEvent(QPaintEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void follow();

    RomanBox& roman_;
};

}  // namespace tolvan
