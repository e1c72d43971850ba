// The table of a recorded run as text in Unicode (UTF-8): a head "line", "text" and the words of the variables, then a
// row for each line that was executed, with the values after it.
#pragma once

#include "platform/richtext/StyledText.h"
#include "runtime/host/TraceTable.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tolvan {

class TraceText {
  public:
    // Values parted by commas, as the program would print them or as a spreadsheet may read them (see Csv.h), or by
    // tabs, as a clipboard has them.
    enum class Form : std::uint8_t { Csv, SpreadsheetCsv, Tabs };

    // The table must outlive this.
    TraceText(TraceTable& table, StyledView program, Form form);

    // The columns by their places in the table; without a line end.
    std::string head(std::span<const std::size_t> columns) const;
    std::string row(std::uint64_t row, std::span<const std::size_t> columns) const;

  private:
    void append(std::string_view field, std::string& row) const;

    TraceTable& table_;
    std::vector<std::string> lines_;  // of the program
    Form form_;
};

// The lines of a program without blanks at their ends.
std::vector<StyledView> trimmedLines(StyledView program);

}  // namespace tolvan
