// What the editor and the windows above it share; one for the whole process, owned by its start-up.
#pragma once

#include "runtime/RunState.h"

namespace tolvan {

struct EditorState {
    RunState run;
    // Preferences, see readRunPreferences.
    bool SaveBeforeExecute = true;
    bool FormatBeforeExecute = true;
    // The application is shutting down: windows close without asking.
    bool Closing = false;
};

}  // namespace tolvan
