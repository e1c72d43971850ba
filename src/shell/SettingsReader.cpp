#include "shell/SettingsReader.h"

#include "editor/EditorState.h"
#include "platform/encoding/Deva.h"
#include "platform/settings/Settings.h"

namespace tolvan {
namespace {

const QString section = QStringLiteral("Settings");

constexpr Preference table[] = {
    {"SaveBeforeExecute", "àayaejn caliv{ya Agaedr saQv"_deva, &EditorState::SaveBeforeExecute},
    {"FormatBeforeExecute", "àayaejn caliv{ya Agaedr sjv"_deva, &EditorState::FormatBeforeExecute},
    {"SuggestWords", "zBd sucv"_deva, &EditorState::SuggestWords},
    {"PairQuotes", "Avtr[ icNha<cI jaefI ilhI"_deva, &EditorState::PairQuotes},
    {"ShowProblems", "Afc[I daov"_deva, &EditorState::ShowProblems},
    {"MendWords", "cuklele zBd AapaeAap ÊéSt kr"_deva, &EditorState::MendWords},
};

const QString lookKey = QStringLiteral("Look");
constexpr LookChoice looks[] = {
    {"Desktop", "s<g[kaàma[e"_deva, {}},
    {"Light", "%j¦"_deva, look::Kind::Light},
    {"Dark", "gfd"_deva, look::Kind::Dark},
    {"Contrast", "Q¦k"_deva, look::Kind::Contrast},
};

}  // namespace

std::span<const LookChoice> lookChoices() {
    return looks;
}

std::span<const Preference> preferences() {
    return table;
}

void readPreferences(const Settings& settings, EditorState& state) {
    for (const Preference& each : table)
        state.*each.value = readSetting(settings.GetSetting(section, QLatin1String(each.key)), true);
    state.Look = {};
    for (const LookChoice& choice : looks)
        if (settings.GetSetting(section, lookKey) == QLatin1String(choice.value)) state.Look = choice.kind;
}

void savePreferences(Settings& settings, const EditorState& state) {
    for (const Preference& each : table)
        settings.SaveSetting(section, QLatin1String(each.key), QString::number(state.*each.value ? 1 : 0));
    for (const LookChoice& choice : looks)
        if (choice.kind == state.Look) settings.SaveSetting(section, lookKey, QLatin1String(choice.value));
}

}  // namespace tolvan
