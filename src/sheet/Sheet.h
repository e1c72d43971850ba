// A hand-in on paper: who wrote it, the program, and what it printed and drew.
#pragma once

#include "sheet/PaintedPages.h"

#include <QImage>

#include <string>
#include <vector>

namespace tolvan {

struct Sheet {
    std::string name;  // these four in UTF-8; empty ones are lines to write on
    std::string className;
    std::string roll;
    std::string date;
    std::string caption;              // of the program, in Roman letters
    std::string roman;                // the program, lines separated by CR LF
    std::vector<StyledText> printed;  // in its last run
    std::string end;                  // how that run ended, in UTF-8; empty: as it should
    QImage picture;                   // of that run; null if it drew nothing
    bool withRoman = false;           // the Roman text beside the program
    bool withFindings = false;        // what the guide says of it
};

// A4 pages with page numbers of their own, after those that the document has.
void addSheet(const Sheet& sheet, SheetPages& document);

inline constexpr QSizeF sheetSize(595, 842);

// Devanagari in the codes of its font, everything else in the Latin one; "?" for what neither has.
StyledText styledOfUnicode(std::string_view utf8);

}  // namespace tolvan
