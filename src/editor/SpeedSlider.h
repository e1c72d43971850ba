// How many lines a program that goes slowly runs in a second: a slider on the toolbar.
#pragma once

#include <QSlider>

namespace tolvan {

class SpeedSlider : public QSlider {
    Q_OBJECT
  public:
    static constexpr int slowest = 1;
    static constexpr int fastest = 20;

    explicit SpeedSlider(QWidget* parent);

  protected:
    bool event(QEvent* event) override;

  private:
    QString description() const;
};

}  // namespace tolvan
