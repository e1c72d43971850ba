#include "dialogs/SystemInformation.h"

#include <QProcess>
#include <QStandardPaths>

namespace tolvan {
namespace {

// The first that is installed is started.
const struct {
    const char* program;
    const char* argument;
} tools[] = {
    {"kinfocenter", nullptr},      {"gnome-control-center", "info-overview"},
    {"cinnamon-settings", "info"}, {"msinfo32", nullptr},
    {"hardinfo2", nullptr},        {"hardinfo", nullptr},
    {"lshw-gtk", nullptr},
};

}  // namespace

bool startSystemInformation() {
    for (const auto& [program, argument] : tools) {
        const QString path = QStandardPaths::findExecutable(QLatin1String(program));
        if (path.isEmpty()) continue;
        const QStringList arguments = argument ? QStringList(QLatin1String(argument)) : QStringList();
        if (QProcess::startDetached(path, arguments)) return true;
    }
    return false;
}

}  // namespace tolvan
