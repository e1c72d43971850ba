#include "Picture.h"

#include "platform/fonts/Fonts.h"

#include <QFontDatabase>
#include <QPainter>

#include <cstdlib>
#include <gtest/gtest.h>

namespace tolvan {
namespace {

constexpr int shade = 48;  // of 255; less is a matter of rounding
constexpr int white = 255;

int darkness(QRgb pixel) {
    return white - qGray(pixel);
}

QFont prepared(QFont font, int pixels) {
    font.setPixelSize(pixels);
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

}  // namespace

QFont sourceFont(int pixels) {
    const QString family = QStringLiteral("Noto Serif Devanagari");
#ifdef _WIN32  // off-screen windows know no fonts of the system there
    static const int loaded = QFontDatabase::addApplicationFont(
        QStringLiteral("/usr/share/fonts/truetype/noto/NotoSerifDevanagari-Regular.ttf"));
    EXPECT_GE(loaded, 0);
#endif
    EXPECT_TRUE(QFontDatabase::families().contains(family)) << "the package fonts-noto-core is missing";
    return prepared(QFont(family), pixels);
}

QFont builtFont(int pixels) {
    return prepared(qtFont(Font::Devanagari), pixels);
}

QImage picture(const QString& text, const QFont& font) {
    const int unit = font.pixelSize();
    QImage image(unit * (static_cast<int>(text.size()) + 4), unit * 3, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setFont(font);
    painter.setPen(Qt::black);
    painter.drawText(unit, unit * 2, text);
    return image;
}

double difference(const QImage& one, const QImage& other) {
    const QRect extent = one.rect() | other.rect();
    int inked = 0;
    int different = 0;
    for (int y = 0; y < extent.height(); ++y)
        for (int x = 0; x < extent.width(); ++x) {
            const int a = one.valid(x, y) ? darkness(one.pixel(x, y)) : 0;
            const int b = other.valid(x, y) ? darkness(other.pixel(x, y)) : 0;
            inked += a > shade || b > shade;
            different += std::abs(a - b) > shade;
        }
    return inked == 0 ? 1.0 : static_cast<double>(different) / inked;
}

}  // namespace tolvan
