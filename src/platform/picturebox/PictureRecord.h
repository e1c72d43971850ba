// What was drawn into a picture, one after the other, so that it can be saved as lines and text (SVG) and not as
// pixels alone. Lengths are in logical pixels. Nothing is worked out before the picture is asked for: most never are.
#pragma once

#include <QByteArray>
#include <QColor>
#include <QFont>
#include <QSize>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tolvan {

class PictureRecord {
  public:
    enum class Shape : std::uint8_t { Point, Line, Box, Circle };

    // A circle has its centre at (x1, y1) and its radius as x2.
    void add(Shape shape, float x1, float y1, float x2, float y2, QColor colour, bool filled);
    // Font-encoded text whose letters stand at `baseline`.
    void addText(std::string_view text, float x, double baseline, const QFont& font, QColor colour);
    // Everything moved up.
    void scrollUp(float distance) { scrolled_ += distance; }
    void clear();

    // The picture as it is now, in Unicode where it has text. Empty when more was drawn than is kept: so much is better
    // saved as pixels.
    QByteArray svg(QSize size, QColor background) const;

    static constexpr std::size_t mostKept = 200'000;  // shapes and texts

  private:
    struct Drawn {
        Shape shape;
        bool filled;
        QRgb colour;
        float x1, x2;
        double y1, y2;  // before all scrolling
    };
    struct Text {
        std::size_t before;  // how many shapes were drawn earlier
        std::string text;
        float x;
        double baseline;  // before all scrolling
        QFont font;
        QRgb colour;
    };

    bool hasRoom() const { return shapes_.size() + texts_.size() < mostKept; }
    static void write(const Text& text, double scrolled, QByteArray& svg);
    static void write(const Drawn& drawn, double scrolled, QByteArray& svg);

    std::vector<Drawn> shapes_;
    std::vector<Text> texts_;
    double scrolled_ = 0;
    bool isWhole_ = true;
};

}  // namespace tolvan
