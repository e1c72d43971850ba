#include "platform/script/Conversions.h"

#include "platform/encoding/Ascii.h"
#include "platform/script/ScriptError.h"
#include "platform/script/text/Calendar.h"
#include "platform/script/text/DateReading.h"
#include "platform/script/text/DateText.h"
#include "platform/script/text/NumberReading.h"
#include "platform/script/text/NumberWriting.h"

#include <cmath>
#include <limits>

namespace tolvan::script {

namespace {

constexpr std::uint32_t wholeTypes = bits(Type::Byte, Type::Integer, Type::Long, Type::Boolean);

// A text in the form that plain VBScript reads.
class PlainText {
  public:
    PlainText(Context& context, std::string_view text) : view_(text) {
        if (context.textForm().isPlain()) return;
        held_ = context.textForm().plain(text);
        view_ = held_;
    }
    PlainText(const PlainText&) = delete;
    PlainText& operator=(const PlainText&) = delete;
    std::string_view view() const { return view_; }

  private:
    std::string held_;
    std::string_view view_;
};

// For what has no number: Null, arrays, errors.
[[noreturn]] void refuse(const Value& value) {
    throw ScriptError(value.is(Type::Null) ? errors::invalidNull : errors::typeMismatch);
}

double finite(double number) {
    if (std::isinf(number)) throw ScriptError(errors::overflow);
    return number;
}

double numberOfText(Context& context, std::string_view text) {
    const auto number = textAsNumber(context, text);
    if (!number) throw ScriptError(errors::typeMismatch);
    return finite(*number);
}

// The number of a text like &HFFFF as the bits of a whole number of Target's width, if they fit.
template <class Target>
std::optional<Target> bitsOfText(Context& context, std::string_view text) {
    const PlainText plain(context, text);
    const auto pattern = parseBitPattern(plain.view());
    using Unsigned = std::make_unsigned_t<Target>;
    if (!pattern || *pattern > std::numeric_limits<Unsigned>::max()) return std::nullopt;
    return static_cast<Target>(static_cast<Unsigned>(*pattern));
}

template <class Target>
Target wholeOf(Context& context, const Value& value) {
    if (value.is(Type::String))
        if (const auto pattern = bitsOfText<Target>(context, value.view())) return *pattern;
    const double rounded = std::nearbyint(toDouble(context, value));
    if (rounded < std::numeric_limits<Target>::min() || rounded > std::numeric_limits<Target>::max())
        throw ScriptError(errors::overflow);
    return static_cast<Target>(rounded);
}

Value numberAsText(Context& context, const WrittenNumber& plain) {
    return context.text(context.textForm().number(plain.view()));
}

std::string_view trimmed(std::string_view text) {
    while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
    return text;
}

}  // namespace

double toDouble(Context& context, const Value& value) {
    switch (value.type()) {
        case Type::Empty:
            return 0;
        case Type::Boolean:
        case Type::Byte:
        case Type::Integer:
        case Type::Long:
            return value.as.i;
        case Type::Single:
            return static_cast<double>(value.as.f);
        case Type::Double:
        case Type::Date:
            return value.as.d;
        case Type::Currency:
            return static_cast<double>(value.as.c) / 10000;
        case Type::String:
            return numberOfText(context, value.view());
        case Type::Object:
            return toDouble(context, context.plain(value));
        default:
            refuse(value);
    }
}

float toSingle(Context& context, const Value& value) {
    if (value.is(Type::Single)) return value.as.f;
    const auto number = static_cast<float>(toDouble(context, value));
    if (std::isinf(number)) throw ScriptError(errors::overflow);
    return number;
}

std::int32_t toLong(Context& context, const Value& value) {
    if (value.isOneOf(wholeTypes)) return value.as.i;
    return wholeOf<std::int32_t>(context, value);
}

std::int16_t toInteger(Context& context, const Value& value) {
    return wholeOf<std::int16_t>(context, value);
}

// True is all bits of a Byte.
std::uint8_t toByte(Context& context, const Value& value) {
    if (value.is(Type::Boolean)) return static_cast<std::uint8_t>(value.as.i);
    return wholeOf<std::uint8_t>(context, value);
}

bool toBoolean(Context& context, const Value& value) {
    if (value.isOneOf(wholeTypes)) return value.as.i != 0;
    if (value.is(Type::Object)) return toBoolean(context, context.plain(value));
    if (value.is(Type::String))
        if (const auto word = textAsBoolean(context, value.view())) return *word;
    return toDouble(context, value) != 0;
}

double toDate(Context& context, const Value& value) {
    if (value.is(Type::Date)) return value.as.d;
    if (value.is(Type::Object)) return toDate(context, context.plain(value));
    if (value.is(Type::String))
        if (const auto days = textAsDate(context, value.view())) return *days;
    const double days = toDouble(context, value);
    if (!isDateInRange(days)) throw ScriptError(errors::overflow);
    return days;
}

std::int64_t currencyOf(double number) {
    // A product of Doubles is as near to a half as the decimals that were meant; from 2^53 on only the wider type has
    // room for all its digits.
    const double product = number * 10000;
    if (std::abs(product) < 9007199254740992.0) return static_cast<std::int64_t>(std::nearbyint(product));
    const long double scaled = std::nearbyint(static_cast<long double>(number) * 10000);
    constexpr long double limit = 9223372036854775808.0L;
    if (scaled < -limit || scaled >= limit) throw ScriptError(errors::overflow);
    return static_cast<std::int64_t>(scaled);
}

std::int64_t toCurrency(Context& context, const Value& value) {
    if (value.is(Type::Currency)) return value.as.c;
    if (value.isOneOf(wholeTypes)) return std::int64_t{value.as.i} * 10000;
    if (value.is(Type::Object)) return toCurrency(context, context.plain(value));
    if (value.is(Type::String)) {
        const PlainText plain(context, value.view());
        if (const auto exact = parseCurrency(plain.view())) return *exact;
    }
    return currencyOf(toDouble(context, value));
}

Value toText(Context& context, const Value& value) {
    switch (value.type()) {
        case Type::String:
            return value;
        case Type::Empty:
            return context.text({});
        case Type::Boolean:
            return context.text(context.textForm().boolean(value.isTrue()));
        case Type::Byte:
        case Type::Integer:
        case Type::Long:
            return numberAsText(context, writeWhole(value.as.i));
        case Type::Single:
            return numberAsText(context, writeSingle(value.as.f));
        case Type::Double:
            return numberAsText(context, writeDouble(value.as.d));
        case Type::Currency:
            return numberAsText(context, writeCurrency(value.as.c));
        case Type::Date:
            return context.text(context.textForm().date(plainDate(value.as.d)));
        case Type::Error: {
            // A missing argument stands for the error that it would be.
            const int number = value.isMissing() ? errors::namedArgumentNotFound : value.as.i;
            return context.text("Error " + std::to_string(number));
        }
        case Type::Object:
            return toText(context, context.plain(value));
        default:
            refuse(value);
    }
}

std::string_view toTextView(Context& context, const Value& value, Value& keep) {
    if (value.is(Type::String)) return value.view();
    keep = toText(context, value);
    return keep.view();
}

std::optional<double> textAsNumber(Context& context, std::string_view text) {
    return parseNumber(PlainText(context, text).view());
}

std::optional<double> textAsDate(Context& context, std::string_view text) {
    return parseDate(PlainText(context, text).view());
}

std::optional<bool> textAsBoolean(Context& context, std::string_view text) {
    const PlainText plain(context, text);
    std::string_view word = trimmed(plain.view());
    // As data files hold it: #TRUE#.
    if (word.size() > 2 && word.front() == '#' && word.back() == '#') word = word.substr(1, word.size() - 2);
    if (sameButForCase(word, "true")) return true;
    if (sameButForCase(word, "false")) return false;
    return std::nullopt;
}

}  // namespace tolvan::script
