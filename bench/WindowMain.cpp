// The main of the benchmarks with windows of the editor's look.
#include "dialogs/Look.h"

#include <QApplication>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

int main(int argumentCount, char** arguments) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    const QTemporaryDir settings;  // in place of the user's own
    qputenv("XDG_CONFIG_HOME", settings.path().toLocal8Bit());
    QApplication application(argumentCount, arguments);
    QApplication::setQuitOnLastWindowClosed(false);
    tolvan::look::apply(application);
    benchmark::Initialize(&argumentCount, arguments);
    benchmark::RunSpecifiedBenchmarks();
}
