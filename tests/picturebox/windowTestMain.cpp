// The main of test programs with windows.
#include <QApplication>
#include <QStandardPaths>

#include <gtest/gtest.h>

int main(int argumentCount, char** arguments) {
    ::testing::InitGoogleTest(&argumentCount, arguments);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QStandardPaths::setTestModeEnabled(true);
    QApplication application(argumentCount, arguments);
    QApplication::setApplicationName(QStringLiteral("TolbasicTest"));
    return RUN_ALL_TESTS();
}
