// A surface for text and drawings that keeps what was drawn on it. Lengths are in logical pixels (its scale unit), with
// the origin at the top left and y growing downwards; a figure is drawn with a pen of one logical pixel, without
// smoothing, and text is drawn as sharp as the screen allows. Coordinates may be any numbers at all: what lies outside,
// or is no number, is not drawn.
//
// Drawing is immediate but shown later: the widget repaints itself at frame rate when the event loop runs.
#pragma once

#include "platform/picturebox/PictureFont.h"
#include "platform/picturebox/PictureRecord.h"
#include "platform/picturebox/PixelSurface.h"

#include <QBasicTimer>
#include <QElapsedTimer>
#include <QImage>
#include <QWidget>

#include <string_view>

namespace tolvan {

class PictureBox : public QWidget {
    Q_OBJECT

  public:
    explicit PictureBox(QWidget* parent = nullptr);

    // Where the next text starts: its left edge and the top of its line. Every drawing operation moves it to the last
    // point that it was given (a circle: the centre); printing moves it to where the text ends.
    float CurrentX = 0;
    float CurrentY = 0;

    float ScaleWidth() const { return static_cast<float>(width()); }
    float ScaleHeight() const { return static_cast<float>(height()); }
    float TextHeight(PictureFont& font) const;

    // The colour of text, and of figures for which none is given.
    QColor foreground() const { return foreground_; }
    void setForeground(QColor colour) { foreground_ = colour; }

    // A rectangle or circle is an outline, or filled with its own colour.
    enum class FillStyle : bool { Transparent, Solid };

    void PSet(float x, float y, QColor colour);
    void Line(float x1, float y1, float x2, float y2, QColor colour);
    void Box(float x1, float y1, float x2, float y2, QColor colour, FillStyle fill);
    void Circle(float x, float y, float radius, QColor colour, FillStyle fill);
    // Font-encoded text, on the current line.
    void Print(std::string_view text, PictureFont& font);
    // To the start of the next line in this font.
    void NewLine(PictureFont& font);

    // Moves the picture up; the strip that comes in at the bottom is black.
    void ScrollUp(float distance);
    // Wipes everything; the position moves to the top left.
    void Cls();

    // Before the picture is wiped to draw the next one: shows it, if a frame's time has passed since the last one was
    // shown, and keeps showing it until the next one is likely to be whole. So animation does not flicker.
    void FinishPicture();
    // Shows at once what has been drawn.
    void ShowNow();

    // Wipes everything and draws a copy that Image() made of a picture of this size; where it was larger or smaller,
    // from the top left corner.
    void SetImage(const QImage& image);
    // A copy of what has been drawn, in device pixels.
    QImage Image();
    // What has been drawn since it was wiped, as lines and text; empty where that is too much, see PictureRecord.
    QByteArray Svg() const { return record_.svg(size(), Qt::black); }
    // A copy of what the box shows: the same, or the last finished picture.
    QImage ShownImage();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

  private:
    // Makes the surface fit for the size and the screen of the widget. A widget that shrinks keeps what it cuts off,
    // until it is wiped.
    void fit();
    double device(float length) const;     // the first device pixel of a logical one
    double deviceEnd(float length) const;  // and its last one, where the next begins
    int pen() const;
    void changed();
    QImage rows(int from, int count) const;
    void paintInto(QPainter& painter) const;

    double pixelRatio_ = 0;  // of the surface; 0 before it has one
    PixelSurface surface_;
    PictureRecord record_;
    QColor foreground_ = Qt::white;
    QBasicTimer frame_;  // runs while there is something new to show
    QElapsedTimer sinceShown_;
    QImage finished_;  // shown in place of the surface until the timer ends; null if none is
};

}  // namespace tolvan
