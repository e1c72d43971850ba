#include "dialogs/Look.h"
#include "dialogs/MarathiTexts.h"
#include "dialogs/NoDisplay.h"
#include "platform/fonts/Fonts.h"
#include "platform/process/OwnProgram.h"
#include "platform/settings/Settings.h"
#include "shell/mdlMain.h"

#include <QApplication>
#include <QTimer>

#include <string>
#include <vector>

int main(int argumentCount, char** arguments) {
    int one = 1;  // the program's name; what follows it is not for Qt to read
    tolvan::NoDisplayMessage noDisplay("tolbasic");
    QApplication application(one, arguments);
    noDisplay.end();
    QApplication::setOrganizationName(QStringLiteral("Tolbasic"));
    QApplication::setApplicationName(QStringLiteral("Tolbasic"));
    QApplication::setDesktopFileName(QStringLiteral("tolbasic"));
    tolvan::loadStandIns();
    tolvan::look::apply(application);
    tolvan::MarathiTexts::installIn(application);

    const std::vector<std::string> words = tolvan::commandLineWords(argumentCount, arguments);
    tolvan::Settings settings(tolvan::Settings::userFile());
    tolvan::mdlMain start(settings);
    QTimer::singleShot(0, &start, [&] { start.Main(words); });
    return QApplication::exec();
}
