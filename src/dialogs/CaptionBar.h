// The caption bar along the top of every window: icon, title, and the buttons to minimise, maximise and close. It shows
// and asks; what is asked for is done by the window's WindowFrame.
#pragma once

#include "dialogs/CaptionButton.h"
#include "dialogs/StyledLine.h"
#include "dialogs/SystemMenu.h"
#include "platform/richtext/StyledText.h"

#include <QWidget>

#include <optional>
#include <string_view>

namespace tolvan {

class CaptionBar : public QWidget {
    Q_OBJECT
  public:
    // For the window `parent`. One that cannot be resized has only the button to close it.
    CaptionBar(QWidget* parent, bool resizable);

    // `name` is shown after the title, see controlText.
    void setTitle(StyledView title, const QString& name = {});
    StyledView title() const { return title_; }

    // The look of a window that has the keyboard, or of one that has not.
    void setActive(bool active);
    bool isActive() const { return active_; }

    // The middle button restores a maximised window.
    void setMaximized(bool maximized);

    // Wide enough for the whole title.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  signals:
    void systemCommand(tolvan::SystemCommand command);
    // The system menu is wanted with its upper left corner there, in screen coordinates.
    void menuRequested(QPoint global);
    // The mouse, with its left button down since `from` (screen coordinates), began to draw the window away.
    void dragged(QPoint from);
    void doubleClicked();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

  private:
    CaptionButton* addButton(CaptionButton::Sign sign, const char* name, std::string_view caption,
                             SystemCommand command);
    int buttonsWidth() const;

    StyledText title_;
    ControlText shownTitle_;
    bool active_ = false;
    CaptionButton* icon_ = nullptr;
    CaptionButton* maximize_ = nullptr;
    QList<CaptionButton*> buttons_;  // at the right, from left to right
    std::optional<QPoint> pressedAt_;
};

}  // namespace tolvan
