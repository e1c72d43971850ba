#include "runtime/host/LibraryObject.h"

#include "platform/encoding/Ascii.h"
#include "platform/process/LocalTime.h"
#include "platform/richtext/Letters.h"
#include "platform/script/ScriptError.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <iterator>
#include <limits>
#include <numbers>
#include <string>

namespace tolvan {
namespace {

using script::Arguments;
using script::ScriptError;
using script::Value;

[[noreturn]] void refuse() {
    throw ScriptError(script::errors::invalidCall);
}

// A number of letters, or the number of one.
std::size_t letterNumber(const Arguments& arguments, std::size_t index, std::int32_t least) {
    const std::int32_t number = arguments.integer(index);
    if (number < least) refuse();
    return static_cast<std::size_t>(number);
}

// Codes. The words for letters take and give no longer texts, so that a statement with one takes no time to notice.
constexpr std::size_t longestText = std::size_t{1} << 20;

LetterText letters(const Arguments& arguments, std::size_t index) {
    const std::string text = arguments.text(index);
    if (text.size() > longestText) throw ScriptError(script::errors::outOfStringSpace);
    return LetterText(text);
}

// The longest single wait, in seconds: a day.
constexpr double longestWait = 86400;

// Numbers as a reader writes them, with a Latin mark in between.
Value marked(const char* format, int first, int second, int third) {
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), format, first, second, third);
    return Value::text(text.data());
}

}  // namespace

struct LibraryObject::Member {
    std::string_view name;
    std::size_t arguments;
    Value (LibraryObject::*method)(Arguments&);
};

const LibraryObject::Member LibraryObject::members[] = {
    {"RandomNumber", 1, &LibraryObject::randomNumber},   {"Sine", 1, &LibraryObject::sine},
    {"LetterCount", 1, &LibraryObject::letterCount},     {"LetterPart", 3, &LibraryObject::letterPart},
    {"LetterFind", 2, &LibraryObject::letterFind},       {"LetterReplace", 3, &LibraryObject::letterReplace},
    {"LetterReverse", 1, &LibraryObject::letterReverse}, {"Wait", 1, &LibraryObject::wait},
    {"PressedKey", 0, &LibraryObject::pressedKey},       {"TimeText", 0, &LibraryObject::timeText},
    {"DateText", 0, &LibraryObject::dateText},           {"SecondsRunning", 0, &LibraryObject::secondsRunning},
};

void LibraryObject::reset() {
    random_.seed(seed_ ? *seed_ : std::random_device()());
    start_ = Clock::now();
    waited_ = 0;
}

int LibraryObject::findMember(std::string_view name) const {
    const auto* const found = std::find_if(std::begin(members), std::end(members),
                                           [&](const Member& m) { return sameButForCase(m.name, name); });
    return found == std::end(members) ? noMember : static_cast<int>(found - std::begin(members));
}

Value LibraryObject::call(int number, Arguments& arguments) {
    const Member& member = members[number];
    if (arguments.count() != member.arguments) throw ScriptError(script::errors::argumentCount);
    throttle_.lookSoon();  // texts can be long
    return (this->*member.method)(arguments);
}

// From 1 to the argument. The remainder is taken, and not a distribution of the standard library, so that a seed gives
// the same numbers everywhere; against 2^32 the difference in likelihood does not count.
Value LibraryObject::randomNumber(Arguments& arguments) {
    const std::int32_t most = arguments.integer(0);
    if (most < 1) refuse();
    return Value::longInteger(static_cast<std::int32_t>(random_() % static_cast<std::uint32_t>(most)) + 1);
}

double sineOfDegrees(double degrees) {
    const double angle = std::fmod(degrees, 360);
    if (std::fmod(angle, 30) == 0) {
        static constexpr std::array<double, 12> exact = {0, 0.5, 0, 1, 0, 0.5, 0, -0.5, 0, -1, 0, -0.5};
        const auto step = static_cast<std::size_t>((static_cast<int>(angle) + 360) % 360 / 30);
        if (step % 6 == 0 || exact[step] != 0) return exact[step];
    }
    return std::sin(angle * std::numbers::pi / 180);
}

Value LibraryObject::sine(Arguments& arguments) {
    return Value::number(sineOfDegrees(arguments.number(0)));
}

Value LibraryObject::letterCount(Arguments& arguments) {
    return Value::longInteger(static_cast<std::int32_t>(letters(arguments, 0).count()));
}

Value LibraryObject::letterPart(Arguments& arguments) {
    const std::size_t first = letterNumber(arguments, 1, 1);
    const std::size_t count = letterNumber(arguments, 2, 0);
    return Value::text(letters(arguments, 0).part(first, count));
}

Value LibraryObject::letterFind(Arguments& arguments) {
    const auto found = letters(arguments, 0).find(letters(arguments, 1));
    return Value::longInteger(static_cast<std::int32_t>(found.value_or(0)));
}

Value LibraryObject::letterReplace(Arguments& arguments) {
    const auto replaced = letters(arguments, 0).replaced(letters(arguments, 1), letters(arguments, 2), longestText);
    if (!replaced) throw ScriptError(script::errors::outOfStringSpace);
    return Value::text(*replaced);
}

Value LibraryObject::letterReverse(Arguments& arguments) {
    return Value::text(letters(arguments, 0).backwards());
}

std::time_t simulatedStart() {
    std::tm start{};
    start.tm_year = 2026 - 1900;
    start.tm_mday = 26;
    start.tm_hour = 10;
    start.tm_min = 8;
    start.tm_sec = 30;
    start.tm_isdst = -1;
    return std::mktime(&start);
}

Value LibraryObject::wait(Arguments& arguments) {
    const double seconds = arguments.number(0);
    if (seconds < 0 || seconds > longestWait) refuse();
    waited_ += seconds;
    if (simulatedStart_) return {};
    console_.Wait(seconds);
    throttle_.mustAsk();  // it may have been stopped meanwhile
    return {};
}

Value LibraryObject::pressedKey(Arguments&) {
    return Value::text(console_.ReadKey());
}

double LibraryObject::secondsSinceStart() const {
    if (simulatedStart_) return waited_;
    return std::chrono::duration<double>(Clock::now() - start_).count();
}

std::tm LibraryObject::localTime() const {
    const std::time_t now = simulatedStart_ ? *simulatedStart_ + static_cast<std::time_t>(waited_) : std::time(nullptr);
    return localTimeOf(now);
}

Value LibraryObject::timeText(Arguments&) {
    const std::tm now = localTime();
    return marked("%02d{:}%02d{:}%02d", now.tm_hour, now.tm_min, now.tm_sec);
}

Value LibraryObject::dateText(Arguments&) {
    const std::tm now = localTime();
    return marked("%d{/}%d{/}%d", now.tm_mday, now.tm_mon + 1, now.tm_year + 1900);
}

Value LibraryObject::secondsRunning(Arguments&) {
    return Value::number(secondsSinceStart());
}

}  // namespace tolvan
