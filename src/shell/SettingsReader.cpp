#include "shell/SettingsReader.h"

#include "editor/EditorState.h"
#include "platform/settings/Settings.h"

namespace tolvan {
namespace {

const QString section = QStringLiteral("Settings");
const QString saveKey = QStringLiteral("SaveBeforeExecute");
const QString formatKey = QStringLiteral("FormatBeforeExecute");

}  // namespace

void readRunPreferences(const Settings& settings, EditorState& state) {
    state.SaveBeforeExecute = readSetting(settings.GetSetting(section, saveKey), true);
    state.FormatBeforeExecute = readSetting(settings.GetSetting(section, formatKey), true);
}

void saveRunPreferences(Settings& settings, bool saveBeforeExecute, bool formatBeforeExecute) {
    const auto digit = [](bool value) { return QString::number(value ? 1 : 0); };
    settings.SaveSetting(section, saveKey, digit(saveBeforeExecute));
    settings.SaveSetting(section, formatKey, digit(formatBeforeExecute));
}

}  // namespace tolvan
