// Parts and forms of texts. A character is a byte: the functions that end in B are the same as those without it.
#include "platform/script/library/FunctionArguments.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace tolvan::script {

namespace {

constexpr std::int32_t mostBytes = std::numeric_limits<std::int32_t>::max();

// Makes the argument a String; false for Null, of which most functions here make Null.
bool makeText(Context& context, Value& argument) {
    if (argument.is(Type::String)) return true;
    if (settle(context, argument).is(Type::Null)) return false;
    argument = toText(context, argument);
    return true;
}

Value len(Context& context, ArgumentList arguments) {
    if (!makeText(context, arguments[0])) return Value::null();
    return Value::longInteger(static_cast<std::int32_t>(arguments[0].view().size()));
}

std::size_t countAt(Context& context, ArgumentList arguments, std::size_t index) {
    return static_cast<std::size_t>(longWithin(context, arguments[index], 0, mostBytes));
}

Value left(Context& context, ArgumentList arguments) {
    if (!makeText(context, arguments[0])) return Value::null();
    return partOf(context, arguments[0], 0, countAt(context, arguments, 1));
}

Value right(Context& context, ArgumentList arguments) {
    if (!makeText(context, arguments[0])) return Value::null();
    const std::size_t length = arguments[0].view().size();
    const std::size_t count = std::min(countAt(context, arguments, 1), length);
    return partOf(context, arguments[0], length - count, count);
}

Value mid(Context& context, ArgumentList arguments) {
    if (!makeText(context, arguments[0])) return Value::null();
    const auto start = static_cast<std::size_t>(longWithin(context, arguments[1], 1, mostBytes));
    const std::size_t count = isGiven(arguments, 2) ? countAt(context, arguments, 2) : mostBytes;
    return partOf(context, arguments[0], start - 1, count);
}

template <char (*change)(char)>
Value changeLetters(Context& context, ArgumentList arguments) {
    if (!makeText(context, arguments[0])) return Value::null();
    const std::string_view text = arguments[0].view();
    const auto first = std::find_if(text.begin(), text.end(), [](char c) { return change(c) != c; });
    if (first == text.end()) return std::move(arguments[0]);
    char* bytes = nullptr;
    Value changed = newText(context, text.size(), bytes);
    std::transform(text.begin(), text.end(), bytes, change);
    return changed;
}

enum Ends { Front = 1, Back = 2 };

template <int ends>
Value trim(Context& context, ArgumentList arguments) {
    if (!makeText(context, arguments[0])) return Value::null();
    const std::string_view text = arguments[0].view();
    std::size_t begin = 0;
    std::size_t end = text.size();
    if ((ends & Front) != 0)
        while (begin < end && text[begin] == ' ') ++begin;
    if ((ends & Back) != 0)
        while (end > begin && text[end - 1] == ' ') --end;
    return partOf(context, arguments[0], begin, end - begin);
}

Value repeated(Context& context, std::size_t count, char c) {
    char* bytes = nullptr;
    Value text = newText(context, count, bytes);
    std::memset(bytes, static_cast<unsigned char>(c), count);
    return text;
}

Value space(Context& context, ArgumentList arguments) {
    return repeated(context, countAt(context, arguments, 0), ' ');
}

// String(count, character): the first one of a text, or a code, of which the lowest 8 bits count.
Value string(Context& context, ArgumentList arguments) {
    const Value& character = settle(context, arguments[1]);
    if (settle(context, arguments[0]).is(Type::Null) || character.is(Type::Null)) return Value::null();
    const std::size_t count = countAt(context, arguments, 0);
    if (!character.is(Type::String)) return repeated(context, count, static_cast<char>(toLong(context, character)));
    if (character.view().empty()) raise(errors::invalidCall);
    return repeated(context, count, character.view().front());
}

Value strReverse(Context& context, ArgumentList arguments) {
    arguments[0] = toText(context, arguments[0]);
    const std::string_view text = arguments[0].view();
    char* bytes = nullptr;
    Value reversed = newText(context, text.size(), bytes);
    std::reverse_copy(text.begin(), text.end(), bytes);
    return reversed;
}

int compareFolded(std::string_view left, std::string_view right) {
    const std::size_t common = std::min(left.size(), right.size());
    for (std::size_t i = 0; i < common; ++i) {
        const int difference =
            static_cast<unsigned char>(lowerLetter(left[i])) - static_cast<unsigned char>(lowerLetter(right[i]));
        if (difference != 0) return difference;
    }
    return (left.size() > right.size()) - (left.size() < right.size());
}

Value strComp(Context& context, ArgumentList arguments) {
    const Comparison comparison = comparisonAt(context, arguments, 2);
    if (!makeText(context, arguments[0]) || !makeText(context, arguments[1])) return Value::null();
    const std::string_view one = arguments[0].view();
    const std::string_view other = arguments[1].view();
    const int order = comparison == Comparison::Text ? compareFolded(one, other) : one.compare(other);
    return Value::integer(static_cast<std::int16_t>((order > 0) - (order < 0)));
}

bool staysInEscape(char c) {
    return isLetter(c) || isDigit(c) || (c != '\0' && std::strchr("*+-./@_", c) != nullptr);
}

// All but letters, digits and *+-./@_ as %xx.
Value escape(Context& context, ArgumentList arguments) {
    arguments[0] = toText(context, arguments[0]);
    const std::string_view text = arguments[0].view();
    const auto staying = static_cast<std::size_t>(std::count_if(text.begin(), text.end(), staysInEscape));
    char* out = nullptr;
    Value escaped = newText(context, staying + 3 * (text.size() - staying), out);
    for (const char c : text) {
        if (staysInEscape(c)) {
            *out++ = c;
            continue;
        }
        const auto code = static_cast<unsigned char>(c);
        *out++ = '%';
        *out++ = "0123456789ABCDEF"[code >> 4];
        *out++ = "0123456789ABCDEF"[code & 15];
    }
    return escaped;
}

// The value of `count` hexadecimal digits at `at`, or -1.
int hexAt(std::string_view text, std::size_t at, std::size_t count) {
    if (at + count > text.size()) return -1;
    int value = 0;
    for (const char c : text.substr(at, count)) {
        if (digitValue(c) == noDigit) return -1;
        value = value * 16 + digitValue(c);
    }
    return value;
}

// Turns %xx and %uxxxx back. A code above 255 has no byte and stays as it is written.
Value unescape(Context& context, ArgumentList arguments) {
    arguments[0] = toText(context, arguments[0]);
    const std::string_view text = arguments[0].view();
    char* bytes = nullptr;
    Value plain = newText(context, text.size(), bytes);
    char* out = bytes;
    for (std::size_t i = 0; i < text.size();) {
        const bool wide = text[i] == '%' && i + 1 < text.size() && lowerLetter(text[i + 1]) == 'u';
        const int code = text[i] != '%' ? -1 : hexAt(text, wide ? i + 2 : i + 1, wide ? 4 : 2);
        if (code < 0 || code > 255) {
            *out++ = text[i++];
            continue;
        }
        *out++ = static_cast<char>(code);
        i += wide ? 6 : 3;
    }
    return partOf(context, plain, 0, static_cast<std::size_t>(out - bytes));
}

constexpr Builtin functions[] = {
    {"Escape", 1, 1, escape},
    {"LCase", 1, 1, changeLetters<lowerLetter>},
    {"LTrim", 1, 1, trim<Front>},
    {"Left", 2, 2, left},
    {"LeftB", 2, 2, left},
    {"Len", 1, 1, len},
    {"LenB", 1, 1, len},
    {"Mid", 2, 3, mid},
    {"MidB", 2, 3, mid},
    {"RTrim", 1, 1, trim<Back>},
    {"Right", 2, 2, right},
    {"RightB", 2, 2, right},
    {"Space", 1, 1, space},
    {"StrComp", 2, 3, strComp},
    {"StrReverse", 1, 1, strReverse},
    {"String", 2, 2, string},
    {"Trim", 1, 1, trim<Front | Back>},
    {"UCase", 1, 1, changeLetters<upperLetter>},
    {"Unescape", 1, 1, unescape},
};

}  // namespace

std::span<const Builtin> textFunctions() {
    return functions;
}

}  // namespace tolvan::script
