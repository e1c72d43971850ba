// The opening picture and the font check.
#include "shell/PlainMessage.h"
#include "shell/frmSplash.h"

#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace tolvan {
namespace {

// A clock that goes on by a tenth of a second each time it is read.
std::function<Seconds()> clockFrom(Seconds now) {
    return [now]() mutable { return now += 0.1F; };
}

TEST(Splash, StaysForTwoSeconds) {
    frmSplash splash;
    splash.show();
    int reads = 0;
    auto clock = clockFrom(100);
    waitForSplash(splash, 100, [&] {
        ++reads;
        return clock();
    });
    EXPECT_TRUE(splash.isVisible());
    EXPECT_NEAR(reads, 20, 1);
}

TEST(Splash, AKeyOrAClickClosesItEvenWhenMidnightHasPassed) {
    for (const bool byKey : {true, false}) {
        frmSplash splash;
        splash.show();
        QTimer::singleShot(100, [&] {
            byKey ? QTest::keyClick(QGuiApplication::focusWindow(), Qt::Key_A)
                  : QTest::mouseClick(&splash, Qt::LeftButton);
        });
        waitForSplash(splash, 86399.5F, [] { return 10.0F; });
        EXPECT_FALSE(splash.isVisible());
    }
}

TEST(Fonts, BothAreRequiredOnceEach) {
    const QString latin = QStringLiteral("Times New Roman");
    const QString devanagari = QStringLiteral("Sanskrit 1.2");
    const QString other = QStringLiteral("times new roman");
    EXPECT_TRUE(hasRequiredFonts({other, latin, devanagari}));
    EXPECT_FALSE(hasRequiredFonts({}));
    EXPECT_FALSE(hasRequiredFonts({latin, other}));
    EXPECT_FALSE(hasRequiredFonts({devanagari, other}));
    EXPECT_FALSE(hasRequiredFonts({latin, devanagari, latin}));
}

}  // namespace
}  // namespace tolvan
