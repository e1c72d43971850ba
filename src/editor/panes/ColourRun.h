// The colours of a line of text.
#pragma once

#include <QColor>

#include <cstddef>
#include <vector>

namespace tolvan {

// Characters of a line that have one colour.
struct ColourRun {
    std::size_t start = 0;
    std::size_t length = 0;
    QColor colour;
};

// Adds a run after the others; one that goes on with the colour of the last makes that one longer.
void appendRun(std::vector<ColourRun>& runs, std::size_t start, std::size_t length, QColor colour);

}  // namespace tolvan
