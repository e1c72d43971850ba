// The pixels of a picture box, and drawing into them without smoothing. Everything is counted in device pixels from the
// top left corner; what lies outside is not drawn, however far away it is. Scrolling moves no pixels: the rows lie in a
// ring, and the surface remembers which of them is the top one.
#pragma once

#include <cstdint>
#include <vector>

namespace tolvan {

// 0xffRRGGBB, as QImage::Format_RGB32 keeps it.
using Pixel = std::uint32_t;

// How much of each pixel a piece of text covers.
struct Coverage {
    int left = 0;  // of the first column, from the point where the text starts
    int top = 0;   // of the first row
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> values;  // 255 is all of the pixel; width * height, row by row
};

class PixelSurface {
  public:
    PixelSurface(int width, int height, Pixel background);

    int width() const { return width_; }
    int height() const { return height_; }
    // The pixels of a row that the surface has.
    const Pixel* row(int y) const { return &pixels_[offset(y)]; }
    Pixel* row(int y) { return &pixels_[offset(y)]; }
    // How many rows from `y` on follow each other in memory.
    int rowsInOnePiece(int y) const;

    // The surface becomes this large; what fits keeps its place, what is new is background.
    void resize(int width, int height);
    void clear();

    // Lines and circles are drawn with a square pen whose top left corner follows the figure.
    // Both edges of a rectangle belong to it, and so do both ends of a line.
    void fillRectangle(double left, double top, double right, double bottom, Pixel colour);
    void drawLine(double x1, double y1, double x2, double y2, int pen, Pixel colour);
    void drawCircle(double x, double y, double radius, int pen, Pixel colour);
    void fillCircle(double x, double y, double radius, int pen, Pixel colour);
    void drawText(const Coverage& text, double x, double y, Pixel colour);

    // Moves everything up; the rows that come in at the bottom are background.
    void scrollUp(int rows);

  private:
    std::size_t offset(int y) const;
    void fillRow(int y, int left, int right, Pixel colour);  // both inside the surface, both filled
    void drawPen(double x, double y, int pen, Pixel colour);

    int width_;
    int height_;
    int top_ = 0;  // the row of `pixels_` that is row 0
    Pixel background_;
    std::vector<Pixel> pixels_;
};

}  // namespace tolvan
