// The colours of the words of a program. The translator's own scanner and word table decide, so that a word has the
// colour of what the translator takes it for.
#pragma once

#include "editor/panes/ColourRun.h"
#include "platform/richtext/StyledText.h"

#include <functional>
#include <vector>

namespace tolvan {

struct LibraryWord;

// Keywords, words of the library, numbers, texts with their quotes, and comments, of one line. A word of the library is
// left out if it is the program's own.
using IsOwnWord = std::function<bool(const LibraryWord&)>;
std::vector<ColourRun> wordColours(StyledView line, const IsOwnWord& isOwn);

}  // namespace tolvan
