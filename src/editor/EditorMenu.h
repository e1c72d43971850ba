// A menu whose captions are drawn in the Devanagari font and whose shortcuts in the Latin one, which a menu cannot do
// by itself.
#pragma once

#include <QMenu>

namespace tolvan {

class EditorMenu : public QMenu {
    Q_OBJECT
  public:
    explicit EditorMenu(QWidget* parent);

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const override;
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace tolvan
