// Numbers as plain VBScript writes them, without the engine's text form and without memory of their own.
#pragma once

#include <cstdint>
#include <string>
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

// The same as a string of its own.
std::string plainNumber(double number);
std::string plainNumber(float number);

bool isBlank(char c);

}  // namespace tolvan::script
