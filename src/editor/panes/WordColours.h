// The colours of the words of a program. The translator's own scanner and words decide, so that what is coloured is
// what the translator takes for it.
#pragma once

#include "editor/panes/ProgramBox.h"

namespace tolvan {

// Keywords, numbers, texts with their quotes, and comments, of one line.
std::vector<ColourRun> wordColours(StyledView line);

}  // namespace tolvan
