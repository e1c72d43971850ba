// Makes any top-level widget a window of this system: frameless, with the Marathi caption bar and system menu, an edge
// to resize it by, and a look that tells whether it has the keyboard. The widget keeps its own layout, which is laid
// out inside the frame (the frame is the widget's contents margins).
//
//     frame_ = new WindowFrame(*this, WindowFrame::Kind::Resizable);
//     frame_->setTitle(title);
#pragma once

#include "dialogs/CaptionBar.h"
#include "dialogs/SystemMenu.h"
#include "platform/richtext/StyledText.h"

#include <QMargins>
#include <QObject>

class QShortcut;
class QWidget;

namespace tolvan {

class ResizeGrip;
class WindowMover;

class WindowFrame : public QObject {
    Q_OBJECT
  public:
    // Fixed: a dialog; its size is its content's, it cannot be minimised or maximised.
    enum class Kind { Resizable, Fixed };

    // Of `window`, which owns it and has not been shown yet.
    WindowFrame(QWidget& window, Kind kind);

    // `name`, as of a file, is shown after the title; it may be of any script. The desktop, which cannot draw the
    // font-encoded text, shows the Latin part of the title, the name, and the product's name.
    void setTitle(StyledView title, const QString& name = {});

    CaptionBar& captionBar() const { return *bar_; }
    // To add the window's own items; what they stand for is told by userCommand.
    SystemMenu& systemMenu() const { return *menu_; }

    // The frame around the window's content when it is not maximised; contentsMargins() is the one around it now.
    QMargins normalMargins() const { return marginsWith(normalBorder()); }

    // Does what the item of the system menu says.
    void perform(SystemCommand command);

  signals:
    // An item that the window added to the system menu was chosen.
    void userCommand(const QByteArray& key);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void addShortcuts();
    void addGrips();
    void toggleMaximized();
    int border() const;
    int normalBorder() const;
    QMargins marginsWith(int border) const;
    void updateMargins();
    void layOut();
    void paintBorder();

    QWidget& window_;
    Kind kind_;
    CaptionBar* bar_;
    SystemMenu* menu_;
    WindowMover* mover_;
    QShortcut* menuShortcut_ = nullptr;
    QList<ResizeGrip*> grips_;  // none on a window of fixed size
};

}  // namespace tolvan
