// What the editor and the windows above it share; one for the whole process, owned by its start-up.
#pragma once

#include "dialogs/LookColours.h"
#include "runtime/ProgramRun.h"

#include <optional>

namespace tolvan {

struct EditorState {
    ProgramRun run;
    // Preferences, see readPreferences.
    bool SaveBeforeExecute = true;
    bool FormatBeforeExecute = true;
    bool SuggestWords = true;             // the completion list comes by itself
    bool PairQuotes = true;               // a quote that is typed brings its partner and its span
    bool ShowProblems = true;             // the guide looks at the program while it is typed
    bool MendWords = true;                // a word typed with another vowel length or nasal is put right
    std::optional<look::Kind> Look = {};  // of the windows; none: as the desktop has it
    // The application is shutting down: windows close without asking.
    bool Closing = false;
};

}  // namespace tolvan
