#include "Picture.h"
#include "platform/encoding/EncodingTable.h"
#include "platform/fonts/FontEncoding.h"
#include "support/Cases.h"

#include <QFontMetricsF>

#include <gtest/gtest.h>

namespace tolvan {
namespace {

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
