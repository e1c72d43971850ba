// The colours of the words of a program. The translator's own scanner and words decide, so that what is coloured is
// what the translator takes for it.
#pragma once

#include "editor/panes/ProgramBox.h"

#include <functional>

namespace tolvan {

struct LibraryWord;

// Keywords, words of the library, numbers, texts with their quotes, and comments, of one line. A word of the library is
// left out if it is the program's own.
using IsOwnWord = std::function<bool(const LibraryWord&)>;
std::vector<ColourRun> wordColours(StyledView line, const IsOwnWord& isOwn);

}  // namespace tolvan
