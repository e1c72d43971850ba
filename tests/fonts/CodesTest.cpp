// Every row of the encoding table: the code's glyph against the text that it is said to draw.
#include "Picture.h"
#include "platform/encoding/Windows1252.h"

#include <QFile>
#include <QStringList>

#include <gtest/gtest.h>
#include <map>
#include <vector>

namespace tolvan {
namespace {

struct Row {
    int code;
    QString kind;
    QString draws;
};

std::vector<Row> usedRows() {
    QFile file(QStringLiteral(TOLVAN_SOURCE_DIR "/tools/fonts/encoding.tsv"));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    std::vector<Row> rows;
    file.readLine();  // the names of the columns
    while (!file.atEnd()) {
        const QStringList cells = QString::fromUtf8(file.readLine()).remove(u'\n').split(u'\t');
        if (cells.at(3) != u"unused") rows.push_back({cells.at(0).toInt(), cells.at(3), cells.at(4)});
    }
    return rows;
}

struct Setting {
    QString unicode;
    QString encoded;
};

// What is drawn alone in Unicode needs help: a half form a joiner, or it shows its virama; a sign a letter, or it
// sits on a dotted circle.
Setting settingOf(const Row& row) {
    const QString glyph = QChar(windows1252ToUnicode(static_cast<std::uint8_t>(row.code)));
    const std::map<QString, Setting> byKind = {
        {QStringLiteral("half"), {row.draws + QChar(0x200D), glyph}},
        {QStringLiteral("sign"), {u'क' + row.draws, u'k' + glyph}},
        {QStringLiteral("sign-before"), {u'क' + row.draws, glyph + u'k'}},
        {QStringLiteral("mark"), {u'क' + row.draws, u'k' + glyph}},
        {QStringLiteral("form"), {u'ट' + row.draws, u'q' + glyph}},
        {QStringLiteral("reph"), {QString(row.draws).insert(2, u'क'), u'k' + glyph}},
    };
    if (row.draws == u"\u093C") return {u'ड' + row.draws, glyph + u'f'};
    if (row.draws == u"\u0951" || row.draws == u"\u0952") return {u'क' + row.draws, u'k' + glyph};
    const auto found = byKind.find(row.kind);
    return found != byKind.end() ? found->second : Setting{row.draws, glyph};
}

TEST(BuiltFont, DrawsEveryCodeOfTheTable) {
    const std::vector<Row> rows = usedRows();
    ASSERT_GT(rows.size(), 190U);
    for (const Row& row : rows) {
        if (row.kind == u"blank") continue;
        const Setting setting = settingOf(row);
        EXPECT_LE(difference(picture(setting.unicode, sourceFont(40)), picture(setting.encoded, builtFont(40))),
                  tolerance)
            << "code " << row.code << ", " << row.kind.toStdString() << " " << row.draws.toStdString();
    }
}

}  // namespace
}  // namespace tolvan
