#include "editor/panes/PaneFonts.h"

#include "platform/fonts/Fonts.h"

#include <QFontMetricsF>

#include <algorithm>
#include <cmath>

namespace tolvan {
namespace {

// At 100 %. The x-height of the Latin letters and the head line of the Devanagari ones look of one size like this.
constexpr qreal romanPoints = 12;
constexpr qreal devanagariPoints = 16;
constexpr qreal latinPoints = 13.5;

// The Devanagari font leaves more room under its letters than even the lowest sign under the lowest letter takes.
constexpr qreal devanagariDescent = 0.85;

QFont fixedPitchFont(qreal points) {
    QFont font;
    font.setFamilies(
        {QStringLiteral("DejaVu Sans Mono"), QStringLiteral("Liberation Mono"), QStringLiteral("monospace")});
    font.setStyleHint(QFont::Monospace);
    font.setFixedPitch(true);
    font.setPointSizeF(points);
    return font;
}

}  // namespace

PaneFonts PaneFonts::ofZoom(int percent) {
    const qreal zoom = percent / 100.0;
    PaneFonts fonts{fixedPitchFont(romanPoints * zoom), qtFont(Font::Devanagari, devanagariPoints * zoom),
                    qtFont(Font::Latin, latinPoints * zoom), 0, 0};
    qreal descent = QFontMetricsF(fonts.devanagari).descent() * devanagariDescent;
    for (const QFont& font : {fonts.roman, fonts.latin}) descent = std::max(descent, QFontMetricsF(font).descent());
    for (const QFont& font : {fonts.roman, fonts.devanagari, fonts.latin})
        fonts.baseLine = std::max(fonts.baseLine, std::ceil(QFontMetricsF(font).ascent()));
    fonts.lineHeight = fonts.baseLine + std::ceil(descent);
    return fonts;
}

}  // namespace tolvan
