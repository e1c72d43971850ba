#include "dialogs/Look.h"
#include "platform/fonts/Fonts.h"
#include "runtime/RunState.h"
#include "shell/CommandLine.h"
#include "shell/RunProgramFile.h"

#include <QApplication>
#include <QMessageBox>
#include <QTimer>

#include <cstdio>

namespace {

void tell(const QString& text) {
    std::puts(qPrintable(text));
    std::fflush(stdout);
    QMessageBox::information(nullptr, QApplication::applicationName(), text);
}

}  // namespace

int main(int argumentCount, char** arguments) {
    QApplication application(argumentCount, arguments);
    QApplication::setOrganizationName(QStringLiteral("Tolbasic"));
    QApplication::setApplicationName(QStringLiteral("Tolbasic"));
    tolvan::loadStandIns();
    tolvan::look::apply(application);

    const tolvan::CommandLine commandLine = tolvan::parseCommandLine(QApplication::arguments().mid(1));
    if (!commandLine.file || !commandLine.run) {
        tell(tolvan::usageText());
        return 0;
    }
    tolvan::RunState state;
    if (!tolvan::loadProgramFile(*commandLine.file, state)) {
        tell(QStringLiteral("File cannot be located. Sorry."));
        return 2;
    }
    QTimer::singleShot(0, [&state] { tolvan::runInConsole(state); });
    return QApplication::exec();
}
