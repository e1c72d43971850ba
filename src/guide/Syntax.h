// What the script engine's parser says about one line by itself, so that an error of one line hides none of another.
#pragma once

#include "guide/Line.h"

namespace tolvan::guide {

// The engine's number of the error in the script that the line becomes; 0 if it has none. A line that opens, goes on
// with or ends a block is read as if the rest of it were there.
int syntaxError(const Line& line);

}  // namespace tolvan::guide
