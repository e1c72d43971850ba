// The main of test programs with windows of a kind: the display of the console, or letters alone.
#include "support/Folders.h"

#include <QApplication>
#include <QTemporaryDir>

#include <gtest/gtest.h>

int main(int argumentCount, char** arguments) {
    ::testing::InitGoogleTest(&argumentCount, arguments);
    // The off-screen platform's own screen is too small for the windows at their opening size. Qt takes the colon of a
    // drive for the end of the name.
    const std::string screen = tolvan::sourceFolder() + "/tests/screen.json";
    qputenv("QT_QPA_PLATFORM", QByteArray::fromStdString("offscreen:configfile=" + screen.substr(screen.find('/'))));
    const QTemporaryDir settings;  // in place of the user's own
    qputenv("XDG_CONFIG_HOME", settings.path().toLocal8Bit());
    QApplication application(argumentCount, arguments);
    QApplication::setOrganizationName(QStringLiteral("Tolbasic"));
    QApplication::setApplicationName(QStringLiteral("Tolbasic"));
    return RUN_ALL_TESTS();
}
