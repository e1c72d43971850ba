// Tables as text, values parted by commas (RFC 4180).
#pragma once

#include <string>
#include <string_view>

namespace tolvan {

// For programs that read it as it is, or for a spreadsheet, where what it would take for a formula begins with an
// apostrophe. Numbers stay.
enum class CsvFor : bool { Programs, Spreadsheets };

// One value, quoted where it needs it.
std::string csvValue(std::string_view text, CsvFor whom);

}  // namespace tolvan
