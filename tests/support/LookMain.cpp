// The main of test programs whose windows have the look of the application.
#include "dialogs/Look.h"

#include <QApplication>

#include <gmock/gmock.h>

int main(int count, char** arguments) {
    ::testing::InitGoogleMock(&count, arguments);
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(count, arguments);
    tolvan::look::apply(application);
    QApplication::setQuitOnLastWindowClosed(false);
    return RUN_ALL_TESTS();
}
