// What a program drew, by what it asked for and as it looks.
#pragma once

#include "classroom/Pack.h"
#include "runtime/host/ConsoleOperations.h"

#include <cstdint>
#include <vector>

namespace tolvan::classroom {

struct Figure {
    enum class Kind : std::uint8_t { Point, Line, Box, Circle };
    Kind kind = Kind::Point;
    ConsoleOperations::Point from;  // of a circle: its centre
    ConsoleOperations::Point to;
    float radius = 0;
    Colour colour = 0;
    bool filled = false;
};

// The display as it is when a console opens, and its colours.
inline constexpr int displayWidth = 800;
inline constexpr int displayHeight = 600;
inline constexpr Colour displayBackground = 0x000000;
inline constexpr Colour displayForeground = 0xFFFFFF;

// The figures since the display was last wiped.
class Picture {
  public:
    void add(const Figure& figure);
    // The figure without its pixels.
    void keep(const Figure& figure);
    void clear();

    // How many there were; `figures` are the first `mostKept` of them.
    std::size_t count() const { return count_; }
    const std::vector<Figure>& figures() const { return figures_; }
    bool empty() const { return count_ == 0; }
    // Of the display by rows, 0xBBGGRR; none where nothing was drawn since `add`.
    const std::vector<Colour>& pixels() const { return pixels_; }

    static constexpr std::size_t mostKept = 20'000;

    void write(PackWriter& pack) const;
    static Picture read(PackReader& pack);

    // Whether both consist of the same figures in the same order, whose coordinates differ by `tolerance` at most, and
    // so for lines and boxes without regard to the end at which they begin.
    static bool sameFigures(const Picture& a, const Picture& b, double tolerance);
    // Whether both look the same: each pixel of one is found in the other, at most `tolerance` pixels away. The figures
    // that were not kept were painted, too.
    static bool sameLook(const Picture& a, const Picture& b, int tolerance);

  private:
    void paint(const Figure& figure);
    void paintLine(ConsoleOperations::Point from, ConsoleOperations::Point to, Colour colour);
    void paintRow(double from, double to, int y, Colour colour);
    void paintCircle(const Figure& figure);
    void set(double x, double y, Colour colour);
    bool hasNear(int x, int y, int distance, Colour colour) const;
    Colour at(int x, int y) const;

    std::size_t count_ = 0;
    std::vector<Figure> figures_;
    std::vector<Colour> pixels_;  // by rows; empty before the first figure
};

}  // namespace tolvan::classroom
