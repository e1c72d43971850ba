// Numbers as plain VBScript writes and reads them, without the engine's text form and without memory of their own.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace tolvan::script {

struct WrittenNumber {
    char bytes[40];
    std::uint8_t length = 0;
    std::string_view view() const { return {bytes, length}; }
};

WrittenNumber writeWhole(std::int64_t number);
// 15 significant digits; an exponent where the number is 1E+15 or more, or less than 0.0001. Finite numbers only.
WrittenNumber writeDouble(double number);
// The same with 7 digits: an exponent from 1E+07 on.
WrittenNumber writeSingle(float number);
WrittenNumber writeCurrency(std::int64_t tenThousandths);

// The significant digits of a number: it is 0.d1d2d3... * 10^point. Zero has none.
struct Digits {
    char bytes[20];
    int count = 0;  // without trailing zeros
    int point = 0;
    bool negative = false;
};
// Rounded to 15 digits. Finite numbers only.
Digits digitsOf(double number);
// All of them.
Digits digitsOfCurrency(std::int64_t tenThousandths);

// A text that begins (behind blanks) like &HFF or &O17: its value as written, which the conversions to whole numbers
// take as the bits of one.
std::optional<double> parseBitPattern(std::string_view text);
// The ten-thousandths of a number's text, exact; nothing if it is none or out of range. parseNumber tells which.
std::optional<std::int64_t> parseCurrency(std::string_view text);

bool isBlank(char c);

}  // namespace tolvan::script
