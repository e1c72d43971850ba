#include "shell/user/DrivenProcess.h"

#include <QProcess>

namespace tolvan {

DrivenResult DrivenProcess::run(const std::string& program, const std::vector<std::string>& arguments,
                                const std::vector<std::string>& deeds) {
    std::filesystem::create_directory(folder_ / "home");
    std::string deedLines;
    for (const std::string& deed : deeds) deedLines.append(deed).append("\n");
    folder_.write(".deeds", deedLines);
    folder_.write(".log", "");

    auto environment = QProcessEnvironment::systemEnvironment();
    const auto set = [&](const std::string& name, const std::string& value) {
        environment.insert(QString::fromStdString(name), QString::fromStdString(value));
    };
    set("HOME", folder_ / "home");
    set("XDG_CONFIG_HOME", folder_ / "home/config");
    set("XDG_DATA_HOME", folder_ / "home/data");
    set("QT_QPA_PLATFORM", "offscreen");
    set("QT_PLUGIN_PATH", TOLVAN_PLUGIN_DIR);
    set("QT_QPA_GENERIC_PLUGINS", "tolvanuser");
    set("TOLVAN_USER_DEEDS", folder_ / ".deeds");
    set("TOLVAN_USER_LOG", folder_ / ".log");
    for (const auto& [name, value] : environment_) set(name, value);

    QProcess process;
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(QString::fromStdString(folder_.path()));
    QStringList words;
    for (const std::string& argument : arguments) words << QString::fromStdString(argument);
    process.start(QString::fromStdString(program), words);
    constexpr int longest = 60000;  // milliseconds; a program that hangs is to fail the test, not to stop it
    const bool ended = process.waitForFinished(longest);
    if (!ended) process.kill(), process.waitForFinished();

    DrivenResult result;
    if (ended && process.exitStatus() == QProcess::NormalExit) result.status = process.exitCode();
    result.errors = process.readAllStandardError().toStdString();
    std::istringstream log(folder_.read(".log"));
    for (std::string line; std::getline(log, line);) result.windows.push_back(line);
    return result;
}

}  // namespace tolvan
