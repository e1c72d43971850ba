// A button of the caption bar: a sign in place of a text, never the owner of the keyboard.
#pragma once

#include <QAbstractButton>

namespace tolvan {

class CaptionButton : public QAbstractButton {
    Q_OBJECT
  public:
    enum class Sign { Icon, Minimize, Maximize, Restore, Close };

    CaptionButton(Sign sign, QWidget* parent);

    void setSign(Sign sign);
    Sign sign() const { return sign_; }
    // The look of a window that has the keyboard, or of one that has not.
    void setActive(bool active);

    QSize sizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    void paintSign(QPainter& painter) const;

    Sign sign_;
    bool active_ = false;
};

}  // namespace tolvan
