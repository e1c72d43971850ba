// A hand-in on paper: who wrote it, the program, and what it printed and drew.
#pragma once

#include "sheet/PdfDocument.h"

#include <QImage>

#include <string>
#include <vector>

namespace tolvan {

struct Sheet {
    std::string name;  // these four in UTF-8; empty ones are lines to write on
    std::string className;
    std::string roll;
    std::string date;
    std::string caption;               // of the program, in Roman letters
    std::string roman;                 // the program, lines parted by CR LF
    std::vector<std::string> printed;  // in its last run, in internal text form
    QImage picture;                    // of that run; null if it drew nothing
    bool withRoman = false;            // the Roman text beside the program
    bool withFindings = false;         // what the guide says of it
};

// A4 pages with page numbers of their own, after those that the document has.
void addSheet(const Sheet& sheet, PdfDocument& document);

// An empty document of such pages.
PdfDocument newSheets();

// Devanagari in the codes of its font, everything else in the Latin one; "?" for what neither has.
StyledText styledOfUnicode(std::string_view utf8);

}  // namespace tolvan
