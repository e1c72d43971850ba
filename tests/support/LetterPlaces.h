// Whether assistive technology learns where the letters of a shown text stand on the screen.
#pragma once

#include <QAccessible>
#include <QImage>
#include <QWidget>

#include <gtest/gtest.h>

namespace tolvan {

// The characters that have a place. A letter has ink there, a blank none in its middle, and the place leads back to the
// letter.
inline QString expectLettersWhereDrawn(QWidget& widget) {
    QAccessibleTextInterface& text = *QAccessible::queryAccessibleInterface(&widget)->textInterface();
    const QImage image = widget.grab().toImage();
    const auto hasInk = [&](QRect area) {
        const double ratio = image.devicePixelRatio();
        const QRect device(area.topLeft() * ratio, area.size() * ratio);
        for (int y = device.top(); y <= device.bottom(); ++y)
            for (int x = device.left(); x <= device.right(); ++x)
                if (image.valid(x, y) && image.pixel(x, y) != image.pixel(image.width() - 1, 0)) return true;
        return false;
    };
    QString placed;
    for (int offset = 0; offset < text.characterCount(); ++offset) {
        const QString character = text.text(offset, offset + 1);
        const QRect place = text.characterRect(offset);
        if (place.isEmpty() || character == QLatin1String("\n")) {
            if (!placed.endsWith(u'\n')) placed += u'\n';
            continue;
        }
        placed += character;
        const QRect area = place.translated(-widget.mapToGlobal(QPoint()));
        const bool isBlank = character == QLatin1String(" ");
        EXPECT_EQ(hasInk(isBlank ? area.adjusted(area.width() / 2, 0, -area.width() / 2 + 1, 0) : area), !isBlank)
            << offset << ' ' << qPrintable(character);
        const QRect back = text.characterRect(text.offsetAtPoint(place.center()));
        EXPECT_TRUE(isBlank || back == place) << offset;
    }
    return placed.trimmed();
}

}  // namespace tolvan
