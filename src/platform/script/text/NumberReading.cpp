// Numbers read from text: parseNumber, parseBitPattern and parseCurrency.
//
// What is read as a number: blanks around it; one sign before or after it, or brackets around it, which make it
// negative; a currency sign before it; commas anywhere between the digits before the point; an exponent with E or D.
#include "platform/script/text/NumberReading.h"

#include "platform/encoding/Ascii.h"
#include "platform/script/text/NumberWriting.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>
#include <system_error>

namespace tolvan::script {

namespace {

// The number is 0.DIGITS * 10^point, the digits without leading zeros.
struct Decimal {
    std::string digits;
    std::int64_t point = 0;
    bool negative = false;
};

class DecimalReader {
  public:
    explicit DecimalReader(std::string_view text) : rest_(text) {}

    std::optional<Decimal> read() {
        if (!readFront()) return std::nullopt;
        if (!readDigits() || !readExponent() || !readBack()) return std::nullopt;
        return std::move(decimal_);
    }

  private:
    char peek() const { return rest_.empty() ? '\0' : rest_.front(); }
    void next() { rest_.remove_prefix(1); }

    // Blanks, a sign or an opening bracket, a currency sign, in any order.
    bool readFront() {
        bool currency = false;
        for (;; next()) {
            const char c = peek();
            if (isBlank(c)) continue;
            if (c == '$' && !currency) {
                currency = true;
            } else if ((c == '-' || c == '+' || c == '(') && sign_ == '\0') {
                sign_ = c;
                decimal_.negative = c != '+';
            } else {
                return true;
            }
        }
    }

    bool readDigits() {
        bool any = false;
        for (; isDigit(peek()) || (any && peek() == ','); next()) {
            if (peek() == ',') continue;
            any = true;
            addDigit(1);
        }
        if (peek() == '.') {
            next();
            for (; isDigit(peek()); next()) {
                any = true;
                addDigit(0);
            }
        }
        return any;
    }

    void addDigit(int beforePoint) {
        if (decimal_.digits.empty() && peek() == '0') {
            decimal_.point -= 1 - beforePoint;
            return;
        }
        decimal_.digits += peek();
        decimal_.point += beforePoint;
    }

    bool readExponent() {
        const char mark = peek();
        if (mark != 'e' && mark != 'E' && mark != 'd' && mark != 'D') return true;
        next();
        const bool negative = peek() == '-';
        if (negative || peek() == '+') next();
        if (!isDigit(peek())) return false;
        std::int64_t exponent = 0;
        // Larger exponents are cut to this: no text has enough digits to bring such a number back into range.
        constexpr std::int64_t mostSteps = std::int64_t{1} << 40;
        for (; isDigit(peek()); next()) exponent = std::min(exponent * 10 + (peek() - '0'), mostSteps);
        decimal_.point += negative ? -exponent : exponent;
        return true;
    }

    bool readBack() {
        for (; !rest_.empty(); next()) {
            const char c = peek();
            if (isBlank(c)) continue;
            if (sign_ == '(' && c == ')') {
                sign_ = ')';
            } else if (sign_ == '\0' && (c == '-' || c == '+')) {
                sign_ = c;
                decimal_.negative = c == '-';
            } else {
                return false;
            }
        }
        return sign_ != '(';
    }

    std::string_view rest_;
    Decimal decimal_;
    char sign_ = '\0';
};

double valueOf(Decimal decimal) {
    if (decimal.digits.empty()) return 0;
    const double sign = decimal.negative ? -1 : 1;
    // The exponent of the digits read as a whole number.
    const std::int64_t exponent = decimal.point - static_cast<std::int64_t>(decimal.digits.size());
    if (decimal.point > 310) return sign * std::numeric_limits<double>::infinity();
    if (decimal.point < -330) return 0;
    decimal.digits += 'e';
    decimal.digits += std::to_string(exponent);
    double value = 0;
    const char* first = decimal.digits.data();
    const auto end = std::from_chars(first, first + decimal.digits.size(), value);
    if (end.ec == std::errc::result_out_of_range)
        value = decimal.point > 0 ? std::numeric_limits<double>::infinity() : 0;
    return sign * value;
}

// The most common texts: a sign and up to 15 digits, perhaps with a point. The digits and the power of ten are exact
// then, and their quotient is the nearest number.
std::optional<double> parseShort(std::string_view text) {
    const bool negative = !text.empty() && text.front() == '-';
    if (negative) text.remove_prefix(1);
    if (text.empty() || text.size() > 16) return std::nullopt;
    std::int64_t whole = 0;
    double unit = 0;  // 10 to the power of the digits after the point; 0: no point yet
    for (const char c : text) {
        if (c == '.' && unit == 0) {
            unit = 1;
            continue;
        }
        if (!isDigit(c)) return std::nullopt;
        whole = whole * 10 + (c - '0');
        unit *= 10;
    }
    if (unit == 0 ? text.size() > 15 : text.size() == 1) return std::nullopt;
    const auto number = static_cast<double>(negative ? -whole : whole);
    return unit == 0 ? number : number / unit;
}

}  // namespace

bool isBlank(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

std::optional<double> parseBitPattern(std::string_view text) {
    while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
    if (text.size() < 2 || text.front() != '&') return std::nullopt;
    text.remove_prefix(1);
    int base = 8;
    if (text.front() == 'h' || text.front() == 'H') base = 16;
    if (base == 16 || text.front() == 'o' || text.front() == 'O') text.remove_prefix(1);
    if (text.size() > 1 && text.back() == '&') text.remove_suffix(1);
    if (text.empty()) return std::nullopt;
    double value = 0;
    for (const char c : text) {
        const int digit = digitValue(c);
        if (digit >= base) return std::nullopt;
        value = value * base + digit;
    }
    return value;
}

std::optional<double> parseNumber(std::string_view text) {
    if (const auto number = parseShort(text)) return number;
    if (auto decimal = DecimalReader(text).read()) return valueOf(std::move(*decimal));
    return parseBitPattern(text);
}

std::optional<std::int64_t> parseCurrency(std::string_view text) {
    const auto decimal = DecimalReader(text).read();
    if (!decimal) return std::nullopt;
    const std::string& digits = decimal->digits;
    // In ten-thousandths the digits up to here are whole.
    const std::int64_t whole = decimal->point + 4;
    if (whole < 0 || digits.empty()) return 0;
    if (whole > 19) return std::nullopt;
    const auto digitAt = [&](std::size_t i) { return i < digits.size() ? digits[i] - '0' : 0; };
    const auto count = static_cast<std::size_t>(whole);
    std::uint64_t value = 0;
    for (std::size_t i = 0; i < count; ++i) value = value * 10 + static_cast<std::uint64_t>(digitAt(i));
    // Half to even: up above the half, at the half only from an odd number.
    const bool beyondHalf = digits.size() > count + 1 && digits.find_first_not_of('0', count + 1) != std::string::npos;
    const int next = digitAt(count);
    if (next > 5 || (next == 5 && (beyondHalf || value % 2 != 0))) ++value;
    const std::uint64_t most = std::numeric_limits<std::int64_t>::max();
    if (value > most + (decimal->negative ? 1 : 0)) return std::nullopt;
    return static_cast<std::int64_t>(decimal->negative ? 0 - value : value);
}

}  // namespace tolvan::script
