#include "platform/fonts/FontEncoding.h"
#include "platform/fonts/Fonts.h"
#include "support/Folders.h"

#include <QFile>
#include <QFontDatabase>
#include <QFontInfo>
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

TEST(Fonts, SizeIsInPoints) {
    EXPECT_DOUBLE_EQ(qtFont(Font::Devanagari, 16.5).pointSizeF(), 16.5);
    EXPECT_EQ(qtFont(Font::Devanagari, 16).family(), devanagariName);
}

TEST(FontEncoding, EveryByteComesBack) {
    std::string bytes;
    for (int code = 0; code < 256; ++code) bytes += static_cast<char>(code);
    const QString text = toQString(bytes);
    EXPECT_EQ(text.size(), 256);
    EXPECT_EQ(toFontEncoded(text), bytes);
    EXPECT_EQ(firstWithoutCode(text), std::nullopt);
    EXPECT_EQ(text.sliced(0x80, 3), QStringLiteral("\u20AC\u0081\u201A"));
    EXPECT_EQ(text[0x9D], QChar(0x9D));
}

TEST(FontEncoding, CharactersWithoutByteAreNamedAndLeftOut) {
    const QString text = QStringLiteral("k\u0915a\U0001F600e");
    EXPECT_EQ(toFontEncoded(text), "kae");
    EXPECT_EQ(firstWithoutCode(text), U'\u0915');
    EXPECT_EQ(firstWithoutCode(QStringView(text).sliced(2)), U'\U0001F600');
    EXPECT_EQ(toFontEncoded(QString(QChar(0xD800))), "");
    EXPECT_EQ(toFontEncoded(QString()), "");
}

}  // namespace
}  // namespace tolvan
