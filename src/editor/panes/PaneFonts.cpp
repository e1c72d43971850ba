#include "editor/panes/PaneFonts.h"

#include "platform/fonts/Fonts.h"

#include <QFontMetricsF>

#include <algorithm>
#include <cmath>

namespace tolvan {
namespace {

// At 100 %. The x-height of the Latin letters and the head line of the Devanagari ones look of one size like this.
constexpr qreal romanPoints = 12;
constexpr qreal devanagariPoints = 17;
constexpr qreal latinPoints = 14;

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
    qreal descent = 0;
    for (const QFont& font : {fonts.roman, fonts.devanagari, fonts.latin}) {
        const QFontMetricsF metrics(font);
        fonts.baseLine = std::max(fonts.baseLine, std::ceil(metrics.ascent()));
        descent = std::max(descent, std::ceil(metrics.descent()));
    }
    fonts.lineHeight = fonts.baseLine + descent;
    return fonts;
}

}  // namespace tolvan
