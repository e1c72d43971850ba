#include "shell/CommandLine.h"

namespace tolvan {

CommandLine parseCommandLine(const QStringList& arguments) {
    CommandLine result;
    for (const QString& argument : arguments) {
        if (!argument.startsWith(u'-')) {
            if (!result.file) result.file = argument;
        } else if (argument.compare(QStringLiteral("-run"), Qt::CaseInsensitive) == 0) {
            result.run = true;
        }
    }
    return result;
}

QString usageText() {
    return QStringLiteral(
        "Tolbasic Command-Line Options:\r\n"
        "Tolvan Basic.exe [[programname] [-run] [-compile]]\r\n"
        "[programname]=Name of File containing the Tolvan Basic Program to Load.\r\n"
        "[-run]=Automatically run [Programname] upon loading.\r\n"
        "[-compile]=compile [programname] to stand-alone executable file.");
}

}  // namespace tolvan
