// Reads the run preferences of the user's settings.
#pragma once

namespace tolvan {

struct EditorState;
class Settings;

// Both are on where the settings say nothing, or nothing that is a yes or a no.
void readRunPreferences(const Settings& settings, EditorState& state);

// Written as "1" and "0".
void saveRunPreferences(Settings& settings, bool saveBeforeExecute, bool formatBeforeExecute);

}  // namespace tolvan
