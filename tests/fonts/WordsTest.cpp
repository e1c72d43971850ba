#include "Picture.h"
#include "Words.h"
#include "platform/fonts/FontEncoding.h"

#include <gtest/gtest.h>

namespace tolvan {
namespace {

// The reading sizes of the system: 10 points of a dialog, 16 points of the console, and a large one in which a
// misplaced mark cannot hide.
constexpr int sizes[] = {13, 21, 53};

double differenceOfWord(const Word& word, int pixels) {
    return difference(picture(QString::fromUtf16(word.unicode), sourceFont(pixels)),
                      picture(toQString(word.encoded), builtFont(pixels)));
}

std::string name(const Word& word) {
    return QString::fromUtf16(word.unicode).toStdString();
}

TEST(BuiltFont, DrawsWordsAsItsSourceDoes) {
    for (const Word& word : words)
        for (const int pixels : sizes)
            EXPECT_LE(differenceOfWord(word, pixels), tolerance) << name(word) << " at " << pixels << " pixels";
}

TEST(BuiltFont, DrawsALineOfWordsAsItsSourceDoes) {
    QString unicode, encoded;
    for (const Word& word : words) {
        unicode += QString::fromUtf16(word.unicode) + u' ';
        encoded += toQString(word.encoded) + u' ';
    }
    EXPECT_LE(difference(picture(unicode, sourceFont(21)), picture(encoded, builtFont(21))), tolerance);
}

// The comparison is of no worth unless it tells words apart that differ in the smallest sign.
TEST(BuiltFont, ComparisonSeesASmallSign) {
    const Word different[] = {
        {u"कं", "k"_deva},  {u"कि", "kI"_deva}, {u"पु", "pU"_deva},   {u"बँक", "b<k"_deva},
        {u"र्क", "k"_deva}, {u"ज़", "j"_deva},   {u"स्थि", "iw"_deva}, {u"ट्र", "q"_deva},
    };
    for (const Word& word : different)
        for (const int pixels : sizes) EXPECT_GT(differenceOfWord(word, pixels), 4 * tolerance) << name(word);
}

}  // namespace
}  // namespace tolvan
