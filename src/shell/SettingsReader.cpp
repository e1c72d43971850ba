#include "shell/SettingsReader.h"

#include "editor/EditorState.h"
#include "platform/settings/Settings.h"

namespace tolvan {
namespace {

const QString section = QStringLiteral("Settings");

const struct {
    const char* key;
    bool EditorState::*value;
} preferences[] = {
    {"SaveBeforeExecute", &EditorState::SaveBeforeExecute},
    {"FormatBeforeExecute", &EditorState::FormatBeforeExecute},
    {"SuggestWords", &EditorState::SuggestWords},
    {"PairQuotes", &EditorState::PairQuotes},
};

}  // namespace

void readPreferences(const Settings& settings, EditorState& state) {
    for (const auto& [key, value] : preferences)
        state.*value = readSetting(settings.GetSetting(section, QLatin1String(key)), true);
}

void savePreferences(Settings& settings, const EditorState& state) {
    for (const auto& [key, value] : preferences)
        settings.SaveSetting(section, QLatin1String(key), QString::number(state.*value ? 1 : 0));
}

}  // namespace tolvan
