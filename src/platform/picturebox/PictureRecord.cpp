#include "platform/picturebox/PictureRecord.h"

#include "platform/encoding/Unicode.h"
#include "platform/fonts/Fonts.h"

#include <QFontInfo>
#include <QString>

#include <algorithm>
#include <cmath>

namespace tolvan {
namespace {

QByteArray number(double value) {
    constexpr double far = 1e6;  // farther than any display; larger numbers make some programs draw nothing
    return QByteArray::number(std::clamp(value, -far, far), 'g', 8);
}

QByteArray attribute(const char* name, double value) {
    return QByteArray(" ") + name + "=\"" + number(value) + '"';
}

QByteArray nameOf(QRgb colour) {
    return QColor(colour).name().toLatin1();
}

}  // namespace

void PictureRecord::add(Shape shape, float x1, float y1, float x2, float y2, QColor colour, bool filled) {
    const bool isDrawn = std::isfinite(x1) && std::isfinite(y1) && std::isfinite(x2) && std::isfinite(y2);
    isWhole_ = isWhole_ && hasRoom();
    if (!isDrawn || !isWhole_) return;
    const bool hasSecondPlace = shape == Shape::Line || shape == Shape::Box;
    shapes_.push_back({shape, filled, colour.rgb(), x1, x2, y1 + scrolled_, hasSecondPlace ? y2 + scrolled_ : y2});
}

void PictureRecord::addText(std::string_view text, float x, double baseline, const QFont& font, QColor colour) {
    isWhole_ = isWhole_ && hasRoom();
    if (isWhole_) texts_.push_back({shapes_.size(), std::string(text), x, baseline + scrolled_, font, colour.rgb()});
}

void PictureRecord::clear() {
    shapes_.clear();
    texts_.clear();
    scrolled_ = 0;
    isWhole_ = true;
}

void PictureRecord::write(const Drawn& drawn, double scrolled, QByteArray& svg) {
    const double y1 = drawn.y1 - scrolled;
    const double y2 = drawn.y2 - scrolled;
    const QByteArray paint = (drawn.filled ? " fill=\"" : " stroke=\"") + nameOf(drawn.colour) + "\"/>\n";
    switch (drawn.shape) {
        case Shape::Point:
            svg += "<rect width=\"1\" height=\"1\"" + attribute("x", drawn.x1) + attribute("y", y1) + " fill=\"" +
                   nameOf(drawn.colour) + "\"/>\n";
            break;
        case Shape::Line:
            svg += "<line" + attribute("x1", drawn.x1) + attribute("y1", y1) + attribute("x2", drawn.x2) +
                   attribute("y2", y2) + paint;
            break;
        case Shape::Box:
            svg += "<rect" + attribute("x", std::min(drawn.x1, drawn.x2)) + attribute("y", std::min(y1, y2)) +
                   attribute("width", std::abs(drawn.x2 - drawn.x1)) + attribute("height", std::abs(y2 - y1)) + paint;
            break;
        case Shape::Circle:
            svg += "<circle" + attribute("cx", drawn.x1) + attribute("cy", y1) + attribute("r", std::abs(drawn.x2)) +
                   paint;
    }
}

void PictureRecord::write(const Text& text, double scrolled, QByteArray& svg) {
    const bool isLatin = text.font.family() != fontName(Font::Devanagari);
    std::string utf8;
    if (isLatin)
        appendUnicodeOfLatin(text.text, utf8);
    else
        appendUnicodeOfCodes(text.text, utf8);
    svg += "<text" + attribute("x", text.x) + attribute("y", text.baseline - scrolled) +
           attribute("font-size", QFontInfo(text.font).pixelSize()) + " fill=\"" + nameOf(text.colour) +
           "\" font-family=\"" +
           (isLatin ? "Times New Roman, Liberation Serif, serif" : "Noto Serif Devanagari, Mangal, serif") +
           "\" xml:space=\"preserve\">" + QString::fromStdString(utf8).toHtmlEscaped().toUtf8() + "</text>\n";
}

QByteArray PictureRecord::svg(QSize size, QColor background) const {
    if (!isWhole_) return {};
    const QByteArray extent = attribute("width", size.width()) + attribute("height", size.height());
    QByteArray svg = "<svg xmlns=\"http://www.w3.org/2000/svg\"" + extent + " shape-rendering=\"crispEdges\">\n<rect" +
                     extent + " fill=\"" + background.name().toLatin1() + "\"/>\n<g fill=\"none\">\n";
    std::size_t text = 0;
    for (std::size_t i = 0; i <= shapes_.size(); ++i) {
        for (; text < texts_.size() && texts_[text].before == i; ++text) write(texts_[text], scrolled_, svg);
        if (i < shapes_.size()) write(shapes_[i], scrolled_, svg);
    }
    return svg + "</g></svg>\n";
}

}  // namespace tolvan
