#include "dialogs/LineBreaks.h"

#include <algorithm>

namespace tolvan {

std::vector<LineRange> breakLines(QStringView text, const std::vector<double>& edges, double width) {
    std::vector<LineRange> lines;
    qsizetype begin = 0;
    do {
        // The last character that fits, with the marks over it, which have no width of their own.
        const auto first = edges.begin() + begin;
        qsizetype end = std::upper_bound(first, edges.end(), *first + std::max(width, 0.0)) - edges.begin() - 1;
        qsizetype next = end;
        if (end < text.size()) {
            const qsizetype blank = text.sliced(begin, end + 1 - begin).lastIndexOf(u' ');
            if (blank > 0) {
                end = begin + blank;
                next = end + 1;
            } else {
                const qsizetype slash = text.sliced(begin, end - begin).lastIndexOf(u'/');
                end = next = slash > 0 ? begin + slash + 1 : std::max(end, begin + 1);
            }
        }
        lines.push_back({begin, end});
        begin = next;
    } while (begin < text.size());
    return lines;
}

}  // namespace tolvan
