// What a line is among the blocks and what it does with names, by its words.
#pragma once

namespace tolvan::guide {

struct Line;

// Fills in the statement of a line whose words are known.
void readStatement(Line& line);

}  // namespace tolvan::guide
