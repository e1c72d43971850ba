// A table on paper: the trace of a program. Text that does not fit into its cell is cut.
#pragma once

#include "sheet/SheetPages.h"

#include <string>
#include <vector>

namespace tolvan {

struct TableSheet {
    struct Cell {
        StyledText text;
        bool isMarked = false;  // underlined
    };
    StyledText caption;
    std::vector<StyledText> head;
    std::vector<std::vector<Cell>> rows;  // each as long as the head
};

// A4 pages, each with the head, and with page numbers of their own.
void addTable(const TableSheet& sheet, SheetPages& pages);

}  // namespace tolvan
