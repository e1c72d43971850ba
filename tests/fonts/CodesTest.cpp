// Every row of the encoding table: the code's glyph against the text that it is said to draw.
#include "Picture.h"
#include "platform/encoding/EncodingTable.h"
#include "platform/encoding/Windows1252.h"

#include <gtest/gtest.h>

namespace tolvan {
namespace {

struct Setting {
    QString unicode;
    QString encoded;
};

// What is drawn alone in Unicode needs help: a half form a joiner, or it shows its virama; a sign a letter, or it
// sits on a dotted circle.
Setting settingOf(std::size_t code, const EncodingRow& row) {
    const QString glyph = QChar(windows1252ToUnicode(static_cast<std::uint8_t>(code)));
    const QString draws = QString::fromUtf8(row.draws);
    if (draws == u"\u093C") return {u'ड' + draws, glyph + u'f'};
    if (draws == u"\u0951" || draws == u"\u0952" || row.kind == GlyphKind::Sign || row.kind == GlyphKind::Mark)
        return {u'क' + draws, u'k' + glyph};
    if (row.kind == GlyphKind::Half) return {draws + QChar(0x200D), glyph};
    if (row.kind == GlyphKind::SignBefore) return {u'क' + draws, glyph + u'k'};
    if (row.kind == GlyphKind::Form) return {u'ट' + draws, u'q' + glyph};
    if (row.kind == GlyphKind::Reph) return {QString(draws).insert(2, u'क'), u'k' + glyph};
    return {draws, glyph};
}

TEST(BuiltFont, DrawsEveryCodeOfTheTable) {
    for (std::size_t code = 0; code < encodingTable().size(); ++code) {
        const EncodingRow& row = encodingTable()[code];
        if (row.kind == GlyphKind::Blank || row.kind == GlyphKind::Unused) continue;
        const Setting setting = settingOf(code, row);
        EXPECT_LE(difference(picture(setting.unicode, sourceFont(40)), picture(setting.encoded, builtFont(40))),
                  tolerance)
            << "code " << code << ", " << row.draws;
    }
}

}  // namespace
}  // namespace tolvan
