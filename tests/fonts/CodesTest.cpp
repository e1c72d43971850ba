// Every row of the encoding table: the code's glyph against the text that it is said to draw.
#include "Picture.h"
#include "platform/encoding/Windows1252.h"
#include "support/EncodingTable.h"

#include <gtest/gtest.h>

namespace tolvan {
namespace {

struct Setting {
    QString unicode;
    QString encoded;
};

// What is drawn alone in Unicode needs help: a half form a joiner, or it shows its virama; a sign a letter, or it
// sits on a dotted circle.
Setting settingOf(const EncodingRow& row) {
    const QString glyph = QChar(windows1252ToUnicode(static_cast<std::uint8_t>(row.code)));
    const QString draws = QString::fromStdString(row.draws);
    if (draws == u"\u093C") return {u'ड' + draws, glyph + u'f'};
    if (draws == u"\u0951" || draws == u"\u0952" || row.kind == "sign" || row.kind == "mark")
        return {u'क' + draws, u'k' + glyph};
    if (row.kind == "half") return {draws + QChar(0x200D), glyph};
    if (row.kind == "sign-before") return {u'क' + draws, glyph + u'k'};
    if (row.kind == "form") return {u'ट' + draws, u'q' + glyph};
    if (row.kind == "reph") return {QString(draws).insert(2, u'क'), u'k' + glyph};
    return {draws, glyph};
}

TEST(BuiltFont, DrawsEveryCodeOfTheTable) {
    for (const EncodingRow& row : encodingTable()) {
        if (row.kind == "blank" || row.kind == "unused") continue;
        const Setting setting = settingOf(row);
        EXPECT_LE(difference(picture(setting.unicode, sourceFont(40)), picture(setting.encoded, builtFont(40))),
                  tolerance)
            << "code " << row.code << ", " << row.kind << " " << row.draws;
    }
}

}  // namespace
}  // namespace tolvan
