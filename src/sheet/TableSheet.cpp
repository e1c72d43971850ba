#include "sheet/TableSheet.h"

#include "platform/richtext/Letters.h"

#include <algorithm>
#include <numeric>

namespace tolvan {
namespace {

// In points.
constexpr double margin = 48;
constexpr double textWidth = 595 - 2 * margin;
constexpr double bottom = 842 - margin - 20;
constexpr double textSize = 11;
constexpr double smallSize = 10;
constexpr double rowHeight = 18;
constexpr double padding = 4;
constexpr double widest = 170;  // of a column, if there is more to show

constexpr QColor ink(0, 0, 0);
constexpr QColor dim(90, 90, 90);
constexpr QColor rule(170, 170, 170);

class TableWriter {
  public:
    TableWriter(const TableSheet& sheet, SheetPages& document) : sheet_(sheet), document_(document) {}

    void write() {
        measure();
        const int first = document_.pages() + 1;
        beginPage();
        for (const auto& row : sheet_.rows) {
            if (y_ + rowHeight > bottom) beginPage();
            writeRow(row);
        }
        for (int page = first; page <= document_.pages(); ++page) {
            document_.setPage(page);
            const StyledText number(std::to_string(page - first + 1), Font::Devanagari);
            document_.drawText({margin + textWidth - document_.width(number, smallSize), 842 - margin}, number,
                               smallSize, dim);
        }
    }

  private:
    // Columns that are too wide together share the width in proportion.
    void measure() {
        constexpr std::size_t measured = 300;  // rows
        for (std::size_t column = 0; column < sheet_.head.size(); ++column) {
            double width = document_.width(sheet_.head[column], textSize);
            for (std::size_t row = 0; row < std::min(measured, sheet_.rows.size()); ++row)
                width = std::max(width, document_.width(sheet_.rows[row][column].text, textSize));
            widths_.push_back(std::min(width, widest) + 2 * padding);
        }
        const double all = std::accumulate(widths_.begin(), widths_.end(), 0.0);
        if (all > textWidth)
            for (double& width : widths_) width *= textWidth / all;
    }

    void beginPage() {
        document_.newPage();
        document_.drawText({margin, margin}, sheet_.caption, textSize + 3, ink);
        y_ = margin + 12;
        double x = margin;
        for (std::size_t column = 0; column < sheet_.head.size(); ++column) {
            writeCell(x, column, {sheet_.head[column]}, dim);
            x += widths_[column];
        }
        y_ += rowHeight;
        document_.fillRectangle({margin, y_ - 1, x - margin, 1.2}, ink);
    }

    void writeRow(const std::vector<TableSheet::Cell>& row) {
        double x = margin;
        for (std::size_t column = 0; column < row.size(); ++column) {
            writeCell(x, column, row[column], ink);
            x += widths_[column];
            document_.fillRectangle({x, y_, 0.4, rowHeight}, rule);
        }
        y_ += rowHeight;
        document_.fillRectangle({margin, y_, x - margin, 0.4}, rule);
    }

    void writeCell(double x, std::size_t column, const TableSheet::Cell& cell, QColor colour) {
        const double room = widths_[column] - 2 * padding;
        StyledView text = cell.text;
        if (document_.width(text, textSize) > room) text = text.substr(0, lettersWithin(text, room));
        document_.drawText({x + padding, y_ + 12.5}, text, textSize, colour);
        if (cell.isMarked)
            document_.fillRectangle({x + padding, y_ + 15, std::max(6.0, document_.width(text, textSize)), 1}, ink);
    }

    // Characters of the letters that fit.
    std::size_t lettersWithin(StyledView text, double room) {
        std::size_t length = 0;
        double width = 0;
        for (const StyledView letter : lettersOf(text)) {
            width += document_.width(letter, textSize);
            if (width > room) break;
            length += letter.size();
        }
        return length;
    }

    const TableSheet& sheet_;
    SheetPages& document_;
    std::vector<double> widths_;
    double y_ = 0;
};

}  // namespace

void addTable(const TableSheet& sheet, SheetPages& document) {
    TableWriter(sheet, document).write();
}

}  // namespace tolvan
