// Reads and writes the preferences among the user's settings.
#pragma once

#include "dialogs/LookColours.h"

#include <optional>
#include <span>
#include <string_view>

namespace tolvan {

struct EditorState;
class Settings;

struct Preference {
    const char* key;           // of the setting; the check box is "chk" and this
    std::string_view caption;  // of the check box
    bool EditorState::*value;
};

// In the order in which they are shown.
std::span<const Preference> preferences();

struct LookChoice {
    const char* value;         // of the setting "Look"
    std::string_view caption;  // of its button, which is "optLook" and the value
    std::optional<look::Kind> kind;
};
std::span<const LookChoice> lookChoices();

// All are on where the settings say nothing, or nothing that is a yes or a no; the look is the desktop's.
void readPreferences(const Settings& settings, EditorState& state);

// Written as "1" and "0".
void savePreferences(Settings& settings, const EditorState& state);

}  // namespace tolvan
