#include "dialogs/Look.h"
#include "platform/fonts/Fonts.h"
#include "runtime/RunState.h"
#include "shell/CommandLine.h"
#include "shell/RunProgramFile.h"

#include <QApplication>
#include <QMessageBox>
#include <QTimer>

#include <filesystem>

namespace {

void tell(std::string_view text) {
    QMessageBox::information(nullptr, QApplication::applicationName(),
                             QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
}

}  // namespace

int main(int argumentCount, char** arguments) {
    int one = 1;  // the program's name; what follows it is not for Qt to read
    QApplication application(one, arguments);
    QApplication::setOrganizationName(QStringLiteral("Tolbasic"));
    QApplication::setApplicationName(QStringLiteral("Tolbasic"));
    tolvan::loadStandIns();
    tolvan::look::apply(application);

    const std::string line = tolvan::joinArguments({arguments + 1, arguments + argumentCount});
    const tolvan::CommandLine commandLine = tolvan::parseCommandLine(
        line, {std::filesystem::current_path().string(), QApplication::applicationDirPath().toStdString()});
    for (const auto problem : commandLine.problems) tell(tolvan::problemText(problem));
    if (commandLine.filename.empty() || !commandLine.has("-run")) {
        tell(tolvan::usageText());
        return 0;
    }
    tolvan::RunState state;
    if (!tolvan::loadProgramFile(QString::fromStdString(commandLine.filename), state)) {
        tell("File cannot be located. Sorry.");
        return 2;
    }
    QTimer::singleShot(0, [&state] { tolvan::runInConsole(state); });
    return QApplication::exec();
}
