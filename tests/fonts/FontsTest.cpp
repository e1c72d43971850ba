// The fonts: that they are there, and that every code and word is drawn as it should be.
#include "Picture.h"
#include "platform/encoding/EncodingTable.h"
#include "platform/encoding/Windows1252.h"
#include "platform/fonts/FontEncoding.h"
#include "platform/fonts/Fonts.h"
#include "support/Cases.h"
#include "support/Folders.h"

#include <QFile>
#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetricsF>
#include <QSet>
#include <QtEndian>

#include <gtest/gtest.h>

namespace tolvan {
namespace {

const QString devanagariName = QStringLiteral("Sanskrit 1.2");
const QString latinName = QStringLiteral("Times New Roman");

QString familyDrawn(Font font) {
    return QFontInfo(qtFont(font)).family();
}

// The built font under another name: its family name is overwritten in its name table.
QByteArray builtFontNamed(const QString& family) {
    QFile file(QString::fromStdString(sourceFolder() + "/assets/fonts/TolvanDevanagari.ttf"));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    QByteArray font = file.readAll();
    const auto number16 = [&font](qsizetype place) { return qFromBigEndian<quint16>(font.constData() + place); };
    const auto number32 = [&font](qsizetype place) { return qFromBigEndian<quint32>(font.constData() + place); };
    qsizetype table = 12;
    while (font.sliced(table, 4) != "name") table += 16;
    const qsizetype names = number32(table + 8);
    const qsizetype texts = names + number16(names + 4);
    for (int i = 0; i < number16(names + 2); ++i) {
        const qsizetype record = names + 6 + qsizetype{12} * i;
        const int nameId = number16(record + 6);
        if (nameId != 1 && nameId != 4) continue;
        qToBigEndian<quint16>(static_cast<quint16>(family.size() * 2), font.data() + record + 8);
        for (qsizetype letter = 0; letter < family.size(); ++letter)
            qToBigEndian<quint16>(family[letter].unicode(), font.data() + texts + number16(record + 10) + 2 * letter);
    }
    return font;
}

void expectEachNameOnce() {
    const QStringList fonts = screenFontList();
    EXPECT_EQ(fonts.count(devanagariName), 1);
    EXPECT_EQ(fonts.count(latinName), 1);
    EXPECT_EQ(QSet<QString>(fonts.begin(), fonts.end()).size(), fonts.size());
}

TEST(Fonts, StandInsAnswerForTheNames) {
    ASSERT_FALSE(QFontDatabase::families().contains(devanagariName));
    ASSERT_TRUE(loadStandIns());
    EXPECT_EQ(familyDrawn(Font::Devanagari), QStringLiteral("Tolvan Devanagari"));
    EXPECT_EQ(familyDrawn(Font::Latin),
              QFontDatabase::families().contains(latinName) ? latinName : QStringLiteral("Liberation Serif"));
    expectEachNameOnce();
    for (const Font font : {Font::Devanagari, Font::Latin}) EXPECT_EQ(qtFont(font).family(), fontName(font));
}

TEST(Fonts, InstalledFontOfTheNameComesFirst) {
    ASSERT_TRUE(loadStandIns());
    const int installed = QFontDatabase::addApplicationFontFromData(builtFontNamed(devanagariName));
    ASSERT_GE(installed, 0);
    ASSERT_EQ(QFontDatabase::applicationFontFamilies(installed), QStringList(devanagariName));
    EXPECT_EQ(familyDrawn(Font::Devanagari), devanagariName);
    expectEachNameOnce();
    QFontDatabase::removeApplicationFont(installed);
    EXPECT_EQ(familyDrawn(Font::Devanagari), QStringLiteral("Tolvan Devanagari"));
    expectEachNameOnce();
}

TEST(FontEncoding, CharactersWithoutByteAreNamedAndLeftOut) {
    const QString text = QStringLiteral("k\u0915a\U0001F600e");
    EXPECT_EQ(toFontEncoded(text), "kae");
    EXPECT_EQ(firstWithoutCode(text), U'\u0915');
    EXPECT_EQ(firstWithoutCode(QStringView(text).sliced(2)), U'\U0001F600');
    EXPECT_EQ(toFontEncoded(QString(QChar(0xD800))), "");
    EXPECT_EQ(toFontEncoded(QString()), "");
}

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

// The reading sizes of the system: 10 points of a dialog, 16 points of the console, and a large one in which a
// misplaced mark cannot hide.
constexpr int sizes[] = {13, 21, 53};

// Of the Unicode word in the source font to the encoded word in the built one.
double differenceOfWord(const QString& unicode, const QString& encoded, int pixels) {
    return difference(picture(unicode, sourceFont(pixels)), picture(encoded, builtFont(pixels)));
}

QString unicodeOf(const Row& row) {
    return QString::fromStdString(row.written.at(0));
}

TEST(BuiltFont, DrawsWordsAsItsSourceDoes) {
    QString unicode, encoded;
    for (const Row& row : rowsOf("fonts/words.cases")) {
        for (const int pixels : sizes)
            EXPECT_LE(differenceOfWord(unicodeOf(row), toQString(row[1]), pixels), tolerance)
                << row << " at " << pixels << " pixels";
        unicode += unicodeOf(row) + u' ';
        encoded += toQString(row[1]) + u' ';
    }
    EXPECT_LE(differenceOfWord(unicode, encoded, 21), tolerance) << "all in one line";
}

// One glyph, so that at small sizes its letters stand between the pixels in other places than those of the source.
TEST(BuiltFont, DrawsTheLogotype) {
    const QString codes = toQString(logotype().codes);
    const QString name = QString::fromUtf8(logotype().draws);
    for (const int pixels : {100, 200}) EXPECT_LE(differenceOfWord(name, codes, pixels), 3 * tolerance) << pixels;
    const QFontMetricsF metrics(builtFont(21));
    EXPECT_NEAR(metrics.horizontalAdvance(codes), QFontMetricsF(sourceFont(21)).horizontalAdvance(name), 2);
}

// The comparison is of no worth unless it tells words apart that differ in the smallest sign.
TEST(BuiltFont, ComparisonSeesASmallSign) {
    for (const Row& row : rowsOf("fonts/others.cases"))
        for (const int pixels : sizes)
            EXPECT_GT(differenceOfWord(unicodeOf(row), toQString(row[1]), pixels), 4 * tolerance) << row;
}

}  // namespace
}  // namespace tolvan
