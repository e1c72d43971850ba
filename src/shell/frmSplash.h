// The opening picture: shown while the application starts, until a key, a click, or until it was up for long enough.
#pragma once

#include <QPixmap>
#include <QWidget>

#include <functional>

namespace tolvan {

class frmSplash : public QWidget {
    Q_OBJECT

  public:
    frmSplash();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

  private:
    QPixmap logo_;
};

// Since midnight, local time.
using Seconds = float;
Seconds secondsSinceMidnight();

// Lets window events run until the picture was closed, or until 2 seconds are over since `start`. Past midnight the
// clock is less than `start`: then the picture stays until it is closed.
void waitForSplash(const frmSplash& splash, Seconds start,
                   const std::function<Seconds()>& clock = secondsSinceMidnight);

}  // namespace tolvan
