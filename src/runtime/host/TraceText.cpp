#include "runtime/host/TraceText.h"

#include "platform/encoding/Csv.h"
#include "platform/encoding/Lines.h"
#include "platform/richtext/UnicodeText.h"
#include "translator/Blanks.h"

#include <algorithm>

namespace tolvan {

std::vector<StyledView> trimmedLines(StyledView program) {
    std::vector<StyledView> lines;
    for (const LinePlace& line : linePlaces(program.text()))
        lines.push_back(trimBlanks(program.substr(line.begin, line.size())));
    return lines;
}

TraceText::TraceText(TraceTable& table, StyledView program, Form form) : table_(table), form_(form) {
    for (const StyledView line : trimmedLines(program)) lines_.push_back(unicodeOf(line));
}

void TraceText::append(std::string_view field, std::string& row) const {
    if (form_ != Form::Tabs) {
        row += (row.empty() ? "" : ",") + csvValue(field, form_ == Form::Csv ? CsvFor::Programs : CsvFor::Spreadsheets);
        return;
    }
    if (!row.empty()) row += '\t';
    for (const char c : field) row += c == '\t' || c == '\r' || c == '\n' ? ' ' : c;
}

std::string TraceText::head(std::span<const std::size_t> columns) const {
    std::string head = form_ == Form::Tabs ? "line\ttext" : "line,text";
    for (const std::size_t column : columns) append(table_.columns()[column].unicodeTitle(), head);
    return head;
}

std::string TraceText::row(std::uint64_t row, std::span<const std::size_t> columns) const {
    const int line = table_.programLine(row);
    const auto index = static_cast<std::size_t>(line);
    std::string text = std::to_string(line);
    append(index >= 1 && index <= lines_.size() ? lines_[index - 1] : "", text);
    for (const TraceTable::Cell& cell : table_.cells(row, columns)) append(unicodeOfInternalText(cell.text), text);
    return text;
}

}  // namespace tolvan
