// The text of two panes has one size; Ctrl+wheel in either of them changes it.
#pragma once

#include <QObject>

namespace tolvan {

class TextPane;

class ZoomTogether : public QObject {
    Q_OBJECT
  public:
    static constexpr int least = 50;
    static constexpr int most = 400;

    // Both must outlive it.
    ZoomTogether(TextPane& first, TextPane& second);

    // Percent of the opening size.
    int zoom() const { return zoom_; }
    void setZoom(int percent);

    void zoomIn() { zoomBySteps(1); }
    void zoomOut() { zoomBySteps(-1); }

  signals:
    void zoomChanged(int percent);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void zoomBySteps(int steps);
    void zoomByWheel(int angle);

    TextPane& first_;
    TextPane& second_;
    int zoom_ = 100;
    int wheelAngle_ = 0;  // turned since the last step; eighths of a degree
};

}  // namespace tolvan
