// The console's scrolling back: covers the display with what the program printed before, without pictures, and lets the
// user select it. The program goes on meanwhile, and what it prints can be scrolled to.
#pragma once

#include "platform/picturebox/PictureBox.h"
#include "runtime/ConsoleText.h"

#include <cstddef>
#include <vector>

class QKeyEvent;
class QMouseEvent;

namespace tolvan {

class ScrollBack : public PictureBox {
    Q_OBJECT

  public:
    // Hidden, over `display`, which owns it and on which `text` prints; both must outlive it.
    ScrollBack(PictureBox& display, ConsoleText& text);

    // Hides it: back to the display.
    void leave();
    bool isShown() const { return !isHidden(); }
    // Where a line stands here, if it is shown: its top.
    float topOf(std::size_t line) const;

    // What the user does on the display or here. True if it was meant for scrolling; any other key leaves it first.
    bool keyPressed(const QKeyEvent& key);
    bool mouseMoved(const QMouseEvent& event);
    void wheelTurned(int eighthsOfDegrees);

    // What is selected, in Unicode; lines are separated by line feeds.
    QString selectedText() const;

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    // A place between two characters: before the character with this number in its line's text without run marks.
    struct Place {
        std::size_t line = 0;
        std::size_t character = 0;
        friend auto operator<=>(const Place&, const Place&) = default;
    };

    void enter();
    void scrollTo(std::ptrdiff_t top);
    void scrollBy(std::ptrdiff_t lines);
    bool scrollByKey(int key);
    bool selectByKey(int key);
    void moveCaret(int key);
    void selectTo(Place caret);
    void selectAll();
    void copy() const;

    std::ptrdiff_t topWhenLive() const;
    std::ptrdiff_t wholeRows() const;
    Place placeAt(QPointF point);
    std::vector<float> edgesOf(std::size_t line);

    void draw();
    void drawSelection(std::size_t line, float y);
    void drawScrollBar();

    PictureBox& display_;
    ConsoleText& text_;
    std::size_t top_ = 0;  // the line that stands first
    float offset_ = 0;     // from the upper edge to that line; less than a line
    int wheel_ = 0;        // eighths of degrees that do not make a step yet
    QPointF pressedAt_;
    // Selected is what lies between; nothing if they are equal.
    Place anchor_;
    Place caret_;
};

}  // namespace tolvan
