// The main of test programs with windows.
#include <QApplication>
#include <QTemporaryDir>

#include <gtest/gtest.h>

int main(int argumentCount, char** arguments) {
    ::testing::InitGoogleTest(&argumentCount, arguments);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QTemporaryDir settings;  // in place of the user's own
    qputenv("XDG_CONFIG_HOME", settings.path().toLocal8Bit());
    QApplication application(argumentCount, arguments);
    QApplication::setOrganizationName(QStringLiteral("Tolbasic"));
    QApplication::setApplicationName(QStringLiteral("Tolbasic"));
    return RUN_ALL_TESTS();
}
