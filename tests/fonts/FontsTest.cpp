#include "platform/fonts/Fonts.h"
#include "platform/fonts/FontEncoding.h"

#include <QFontInfo>
#include <QImage>
#include <QPainter>
#include <QRawFont>
#include <QTextLayout>
#include <QGlyphRun>
#include <QDebug>
#include <gtest/gtest.h>

namespace tolvan {
TEST(Try, Draw) {
    ASSERT_TRUE(loadStandIns());
    QFont f = qtFont(Font::Devanagari, 40);
    qInfo() << f.family() << QFontInfo(f).family() << QFontInfo(qtFont(Font::Latin)).family() << QFontInfo(QFont(QStringLiteral("Noto Serif Devanagari"))).family();
    for (int c : {0x81, 0x8d, 0x8f, 0x90, 0x9d, 0x6b, 0x21, 0xa0, 0xad, 0x80}) {
        QTextLayout l(QString(QChar(c)) + QStringLiteral("ya"), f);
        l.beginLayout(); l.createLine(); l.endLayout();
        auto d = qInfo().nospace(); d << "code " << c;
        for (auto& r : l.glyphRuns()) d << " " << r.rawFont().familyName() << r.glyphIndexes() ;
    }
    QImage i(900, 300, QImage::Format_RGB32); i.fill(Qt::white);
    QPainter p(&i); p.setFont(f);
    p.drawText(20, 80, toQString("\x9dya kaera ik<va zaiBdk"));
    p.setFont(QFont(QStringLiteral("Noto Serif Devanagari"), 40));
    p.drawText(20, 180, QStringLiteral("ऱ्या कोरा किंवा शाब्दिक"));
    p.setFont(qtFont(Font::Latin, 40));
    p.drawText(20, 270, QStringLiteral("Times {}"));
}
}
