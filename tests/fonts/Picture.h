// Pictures of text, compared. The source font draws real Devanagari, the built font the same word in the 8-bit
// encoding; both through Qt, as the windows do.
#pragma once

#include <QFont>
#include <QImage>
#include <QString>

namespace tolvan {

// The source font of the built one and the built one, at a size in pixels. The absence of the source fails the test.
// Both without hinting: the rasteriser fits outlines to the pixels by the script of their characters, which differ.
QFont sourceFont(int pixels);
QFont builtFont(int pixels);

// Black text on white, its origin at a fixed place; every picture of a size has the same extent.
QImage picture(const QString& text, const QFont& font);

// The share of inked pixels that differ by more than a shade. The outlines and their places are the same in both
// fonts, so this is 0 unless the rasteriser rounds a shade otherwise; a sign that is a tenth of a letter off its place
// changes several hundredths.
double difference(const QImage& one, const QImage& other);
inline constexpr double tolerance = 0.005;

}  // namespace tolvan
