// Reads and writes the preferences among the user's settings.
#pragma once

namespace tolvan {

struct EditorState;
class Settings;

// All are on where the settings say nothing, or nothing that is a yes or a no.
void readPreferences(const Settings& settings, EditorState& state);

// Written as "1" and "0".
void savePreferences(Settings& settings, const EditorState& state);

}  // namespace tolvan
