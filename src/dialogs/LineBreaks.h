// Where the lines of a paragraph end. They break at blanks alone: any other character, also what Unicode takes for a
// hyphen or a bracket, may be a letter of the Devanagari font.
#pragma once

#include <QStringView>

#include <vector>

namespace tolvan {

// Half-open, 0-based positions of a line's characters; the blank at its end is left out.
struct LineRange {
    qsizetype begin = 0;
    qsizetype end = 0;
};

// The lines of a text, at least one. `edges` are the left edges of its characters, and the right edge of the last one;
// `width` is in the same unit. A word that is wider than the line is broken after a "/", as between the folders of a
// path, and where it has none on the line, where the line ends.
std::vector<LineRange> breakLines(QStringView text, const std::vector<double>& edges, double width);

}  // namespace tolvan
