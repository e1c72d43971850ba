#include "platform/script/text/NumberWriting.h"

#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>

namespace tolvan::script {

namespace {

// "d.ddddE+xx" as to_chars writes it, taken apart.
Digits takeApart(const char* first, const char* last) {
    Digits digits;
    if (*first == '-') {
        digits.negative = true;
        ++first;
    }
    for (; first != last && *first != 'e'; ++first)
        if (*first != '.') digits.bytes[digits.count++] = *first;
    ++first;
    if (*first == '+') ++first;
    std::from_chars(first, last, digits.point);
    ++digits.point;
    return digits;
}

void dropTrailingZeros(Digits& digits) {
    while (digits.count > 0 && digits.bytes[digits.count - 1] == '0') --digits.count;
}

// Raises the last digit by one.
void roundUp(Digits& digits) {
    int last = digits.count - 1;
    while (last >= 0 && digits.bytes[last] == '9') --last;
    digits.count = last + 1;
    if (last >= 0) {
        ++digits.bytes[last];
        return;
    }
    digits.bytes[0] = '1';
    digits.count = 1;
    ++digits.point;
}

Digits exactDigits(double number, int wanted) {
    char buffer[64];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, number, std::chars_format::scientific, wanted - 1);
    Digits digits = takeApart(buffer, end.ptr);
    dropTrailingZeros(digits);
    return digits;
}

char* writeExponent(char* out, int exponent) {
    *out++ = 'E';
    *out++ = exponent < 0 ? '-' : '+';
    const int magnitude = std::abs(exponent);
    if (magnitude < 10) *out++ = '0';
    return std::to_chars(out, out + 4, magnitude).ptr;
}

char* copyDigits(char* out, const Digits& digits, int from, int to) {
    for (int i = from; i < to; ++i) *out++ = i < digits.count ? digits.bytes[i] : '0';
    return out;
}

// `precision`: from this many digits before the point on the number has an exponent.
WrittenNumber layOut(const Digits& digits, int precision) {
    WrittenNumber text;
    char* out = text.bytes;
    if (digits.negative && digits.count > 0) *out++ = '-';
    const int exponent = digits.point - 1;
    if (digits.count == 0) {
        *out++ = '0';
    } else if (exponent < -4 || exponent >= precision) {
        *out++ = digits.bytes[0];
        if (digits.count > 1) *out++ = '.';
        out = copyDigits(out, digits, 1, digits.count);
        out = writeExponent(out, exponent);
    } else if (digits.point <= 0) {
        *out++ = '0';
        *out++ = '.';
        for (int i = digits.point; i < 0; ++i) *out++ = '0';
        out = copyDigits(out, digits, 0, digits.count);
    } else {
        out = copyDigits(out, digits, 0, digits.point);
        if (digits.count > digits.point) *out++ = '.';
        out = copyDigits(out, digits, digits.point, digits.count);
    }
    text.length = static_cast<std::uint8_t>(out - text.bytes);
    return text;
}

}  // namespace

WrittenNumber writeWhole(std::int64_t number) {
    WrittenNumber text;
    text.length = static_cast<std::uint8_t>(std::to_chars(text.bytes, text.bytes + 24, number).ptr - text.bytes);
    return text;
}

// std::to_chars finds the shortest digits that stand for the number, and quickly. Rounding these to 15 digits gives the
// same as rounding the number itself, except where exactly a 5 would be cut off.
Digits digitsOf(double number) {
    constexpr int wantedDigits = 15;
    if (number == 0) return {};
    if (std::abs(number) < std::numeric_limits<double>::min()) return exactDigits(number, wantedDigits);
    char buffer[40];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, number, std::chars_format::scientific);
    Digits digits = takeApart(buffer, end.ptr);
    if (digits.count > wantedDigits) {
        const char next = digits.bytes[wantedDigits];
        if (next == '5' && digits.count == wantedDigits + 1) return exactDigits(number, wantedDigits);
        digits.count = wantedDigits;
        if (next >= '5') roundUp(digits);
    }
    dropTrailingZeros(digits);
    return digits;
}

Digits digitsOfCurrency(std::int64_t tenThousandths) {
    Digits digits;
    digits.negative = tenThousandths < 0;
    const std::uint64_t magnitude =
        digits.negative ? 0 - static_cast<std::uint64_t>(tenThousandths) : static_cast<std::uint64_t>(tenThousandths);
    if (magnitude == 0) return digits;
    digits.count =
        static_cast<int>(std::to_chars(digits.bytes, digits.bytes + sizeof digits.bytes, magnitude).ptr - digits.bytes);
    digits.point = digits.count - 4;
    dropTrailingZeros(digits);
    return digits;
}

WrittenNumber writeDouble(double number) {
    if (std::abs(number) < 1e15 && std::trunc(number) == number) return writeWhole(static_cast<std::int64_t>(number));
    return layOut(digitsOf(number), 15);
}

WrittenNumber writeSingle(float number) {
    if (std::abs(number) < 1e7F && std::trunc(number) == number) return writeWhole(static_cast<std::int64_t>(number));
    return layOut(exactDigits(static_cast<double>(number), 7), 7);
}

WrittenNumber writeCurrency(std::int64_t tenThousandths) {
    // No Currency is so large, or so small, as to have an exponent.
    return layOut(digitsOfCurrency(tenThousandths), 20);
}

std::string plainNumber(double number) {
    return std::string(writeDouble(number).view());
}

std::string plainNumber(float number) {
    return std::string(writeSingle(number).view());
}

}  // namespace tolvan::script
