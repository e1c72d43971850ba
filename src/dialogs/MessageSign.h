// The round sign beside a message, by which its kind is seen before it is read.
#pragma once

#include <QWidget>

namespace tolvan {

class MessageSign : public QWidget {
    Q_OBJECT
  public:
    enum class Kind { Information, Question, Error };

    MessageSign(Kind kind, QWidget* parent);

    QSize sizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    Kind kind_;
};

}  // namespace tolvan
