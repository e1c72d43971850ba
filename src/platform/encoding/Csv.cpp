#include "platform/encoding/Csv.h"

#include "platform/encoding/Ascii.h"

namespace tolvan {
namespace {

// A sign and digits, those of Devanagari too.
bool isNumber(std::string_view text) {
    constexpr std::string_view devanagariZero = "०";
    text.remove_prefix(1);
    while (!text.empty()) {
        const std::string_view start = text.substr(0, devanagariZero.size());
        const bool isDevanagari = start.size() == devanagariZero.size() &&
                                  start.substr(0, 2) == devanagariZero.substr(0, 2) &&
                                  static_cast<unsigned char>(start[2] - devanagariZero[2]) < 10;
        const bool isExponent = text.starts_with("E+") || text.starts_with("E-");
        if (!isDevanagari && !isExponent && !isDigit(text[0]) && text[0] != '.') return false;
        text.remove_prefix(isDevanagari ? devanagariZero.size() : isExponent ? 2 : 1);
    }
    return true;
}

bool isFormula(std::string_view text) {
    constexpr std::string_view starts = "=+-@\t\r";
    return !text.empty() && starts.find(text[0]) != std::string_view::npos && !(text[0] == '-' && isNumber(text));
}

}  // namespace

std::string csvValue(std::string_view text, CsvFor whom) {
    std::string value(whom == CsvFor::Spreadsheets && isFormula(text) ? "'" : "");
    if (text.find_first_of(",\"\r\n") == std::string_view::npos) return value.append(text);
    value.insert(value.begin(), '"');
    for (const char c : text) value.append(c == '"' ? 2U : 1U, c);
    return value + '"';
}

}  // namespace tolvan
