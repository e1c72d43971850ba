#include "classroom/PictureSvg.h"

#include "platform/encoding/Utf8.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

namespace tolvan::classroom {
namespace {

// A coordinate, with what is far outside the display brought nearer: some browsers draw nothing then.
std::string number(double value) {
    constexpr double far = 1e5;
    std::array<char, 32> digits{};
    std::snprintf(digits.data(), digits.size(), "%.6g", std::clamp(value, -far, far));
    return digits.data();
}

std::string colourOf(Colour colour) {
    std::array<char, 8> digits{};
    std::snprintf(digits.data(), digits.size(), "#%02x%02x%02x", colour & 0xFFU, colour >> 8 & 0xFFU,
                  colour >> 16 & 0xFFU);
    return digits.data();
}

std::string attribute(const char* name, double value) {
    return std::string(" ") + name + "='" + number(value) + '\'';
}

std::string paintOf(const Figure& figure) {
    const std::string colour = colourOf(figure.colour);
    return figure.filled ? " fill='" + colour + "'/>" : " stroke='" + colour + "'/>";
}

std::string shapeOf(const Figure& figure) {
    const auto [x1, y1] = figure.from;
    const auto [x2, y2] = figure.to;
    switch (figure.kind) {
        case Figure::Kind::Point:
            return "<rect width='1' height='1'" + attribute("x", x1) + attribute("y", y1) + " fill='" +
                   colourOf(figure.colour) + "'/>";
        case Figure::Kind::Line:
            return "<line" + attribute("x1", x1) + attribute("y1", y1) + attribute("x2", x2) + attribute("y2", y2) +
                   paintOf(figure);
        case Figure::Kind::Circle:
            return "<circle" + attribute("cx", x1) + attribute("cy", y1) + attribute("r", std::abs(figure.radius)) +
                   paintOf(figure);
        case Figure::Kind::Box:
            break;
    }
    return "<rect" + attribute("x", std::min(x1, x2)) + attribute("y", std::min(y1, y2)) +
           attribute("width", std::abs(x2 - x1)) + attribute("height", std::abs(y2 - y1)) + paintOf(figure);
}

bool isShown(const Figure& figure) {
    const auto values = {figure.from.x, figure.from.y, figure.to.x, figure.to.y, figure.radius};
    return std::all_of(values.begin(), values.end(), [](float value) { return std::isfinite(value); });
}

}  // namespace

std::string escaped(std::string_view utf8) {
    std::string safe;
    while (!utf8.empty()) {
        const char32_t c = takeCharacter(utf8);
        if (c == U'&')
            safe += "&amp;";
        else if (c == U'<')
            safe += "&lt;";
        else if (c == U'>')
            safe += "&gt;";
        else if (c == U'"')
            safe += "&quot;";
        else if (c == U'\'')
            safe += "&#39;";
        else
            appendUtf8((c < U' ' && c != U'\t') || (c >= 0x7F && c < 0xA0) ? replacementCharacter : c, safe);
    }
    return safe;
}

std::string svgOf(const Screen& screen) {
    constexpr int lineHeight = 38;  // of the console, and where its letters stand in a line
    constexpr int firstBaseline = 26;
    std::string svg = "<rect width='" + std::to_string(displayWidth) + "' height='" + std::to_string(displayHeight) +
                      "' fill='" + colourOf(displayBackground) + "'/><g fill='none' stroke='none'>";
    for (const Figure& figure : screen.figures)
        if (isShown(figure)) svg += shapeOf(figure);
    svg += "</g>";
    int baseline = firstBaseline;
    for (const std::string& line : screen.text) {
        svg += "<text x='4' y='" + std::to_string(baseline) + "' fill='" + colourOf(displayForeground) + "'>" +
               escaped(line) + "</text>";
        baseline += lineHeight;
    }
    return svg;
}

}  // namespace tolvan::classroom
