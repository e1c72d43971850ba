#include "editor/panes/ColourRun.h"

namespace tolvan {

void appendRun(std::vector<ColourRun>& runs, std::size_t start, std::size_t length, QColor colour) {
    if (!runs.empty() && runs.back().colour == colour && runs.back().start + runs.back().length == start)
        runs.back().length += length;
    else
        runs.push_back({start, length, colour});
}

}  // namespace tolvan
