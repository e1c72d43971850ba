#include "runtime/host/ConsoleObject.h"

#include "platform/encoding/Ascii.h"
#include "platform/script/ScriptError.h"
#include "platform/script/StringCell.h"
#include "runtime/host/NumberText.h"
#include "runtime/host/StepControl.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>
#include <utility>

namespace tolvan {
namespace {

using script::Arguments;
using script::ScriptError;
using script::Type;
using script::Value;
using Fill = ConsoleOperations::Fill;
using Point = ConsoleOperations::Point;

float single(const Arguments& arguments, std::size_t index) {
    const double number = arguments.number(index);
    if (std::abs(number) > std::numeric_limits<float>::max()) throw ScriptError(script::errors::overflow);
    return static_cast<float>(number);
}

Point point(const Arguments& arguments, std::size_t x, std::size_t y) {
    return {single(arguments, x), single(arguments, y)};
}

std::optional<Colour> colour(const Arguments& arguments, std::size_t index) {
    if (arguments.isMissing(index)) return std::nullopt;
    return static_cast<Colour>(arguments.integer(index)) & 0xFFFFFF;
}

Fill fill(const Arguments& arguments, std::size_t index) {
    if (arguments.isMissing(index) || arguments[index].is(Type::Null)) return Fill::Outline;
    return arguments.boolean(index) ? Fill::Solid : Fill::Outline;
}

// The ends of a line or box, whose arguments begin with x1, y1, [x2], [y2]. The program's sentence names (x2, y2) first
// and (x1, y1) last: "from (x2, y2) to (x1, y1)". Drawing ends at the point named last, from which a sentence without a
// start goes on.
struct Ends {
    std::optional<Point> start;
    Point end;
};

Ends ends(const Arguments& arguments) {
    const Point end = point(arguments, 0, 1);
    if (arguments.isMissing(2)) return {std::nullopt, end};
    if (arguments.isMissing(3)) throw ScriptError(script::errors::typeMismatch);
    return {point(arguments, 2, 3), end};
}

void check(FileError error) {
    if (error != FileError::None) throw ScriptError(static_cast<int>(error));
}

// Must not raise an error where the call itself would not.
std::string traceText(const Arguments& arguments, std::size_t index) {
    if (arguments.isMissing(index)) return {};
    const Value& value = arguments[index];
    if (value.is(Type::Boolean)) return value.isTrue() ? "True" : "False";
    if (value.isOneOf(bits(Type::Null, Type::Error, Type::Array, Type::Object))) return "?";
    const std::string text = arguments.text(index);
    return value.is(Type::String) ? text : withoutRunMarks(text);
}

}  // namespace

// What the next poll has to do after a call.
enum class After : std::uint8_t {
    Nothing,        // it took no time
    LookSoon,       // it took time
    ProgramMayEnd,  // it may have stopped the program
    IsPoll,
};

struct ConsoleObject::Member {
    std::string_view name;
    std::size_t leastArguments;
    std::size_t mostArguments;
    After after;
    Value (ConsoleObject::*method)(Arguments&);
};

const ConsoleObject::Member ConsoleObject::members[] = {
    {"PrintString", 1, 1, After::LookSoon, &ConsoleObject::printString},
    {"InputString", 1, 1, After::ProgramMayEnd, &ConsoleObject::inputString},
    {"ClearScreen", 0, 0, After::LookSoon, &ConsoleObject::clearScreen},
    {"CheckForEvents", 0, 0, After::IsPoll, &ConsoleObject::checkForEvents},
    {"StopExecution", 0, 0, After::ProgramMayEnd, &ConsoleObject::stopExecution},
    {"ReadKey", 0, 0, After::LookSoon, &ConsoleObject::readKey},
    {"Wait", 1, 1, After::ProgramMayEnd, &ConsoleObject::wait},
    {"DrawPoint", 2, 3, After::LookSoon, &ConsoleObject::drawPoint},
    {"DrawLine", 2, 5, After::LookSoon, &ConsoleObject::drawLine},
    {"DrawBox", 2, 6, After::LookSoon, &ConsoleObject::drawBox},
    {"DrawCircle", 3, 5, After::LookSoon, &ConsoleObject::drawCircle},
    {"DisplayWidth", 0, 0, After::Nothing, &ConsoleObject::displayWidth},
    {"DisplayHeight", 0, 0, After::Nothing, &ConsoleObject::displayHeight},
    {"FileOpen", 2, 2, After::ProgramMayEnd, &ConsoleObject::fileOpen},
    {"FileClose", 0, 0, After::LookSoon, &ConsoleObject::fileClose},
    {"FileInput", 1, 1, After::LookSoon, &ConsoleObject::fileInput},
    {"FileWrite", 1, 1, After::LookSoon, &ConsoleObject::fileWrite},
    {"EndOfFile", 0, 0, After::Nothing, &ConsoleObject::endOfFile},
};

ConsoleObject::ConsoleObject(ConsoleOperations& console) : console_(console), throttle_(console) {
    setFiles({});
}

void ConsoleObject::setFiles(ReachableFiles files) {
    files_ = std::move(files);
    files_.setConsent([this](const std::string& path, bool writing) { return console_.MayReachFile(path, writing); });
}

void ConsoleObject::reset() {
    file_.close();
    files_.forgetAnswers();
    throttle_.reset();
    library_.reset();
}

int ConsoleObject::findMember(std::string_view name) const {
    const auto* const found = std::find_if(std::begin(members), std::end(members),
                                           [&](const Member& m) { return sameButForCase(m.name, name); });
    return found == std::end(members) ? noMember : static_cast<int>(found - std::begin(members));
}

Value ConsoleObject::call(int number, Arguments& arguments) {
    const Member& member = members[number];
    if (arguments.count() < member.leastArguments || arguments.count() > member.mostArguments)
        throw ScriptError(script::errors::argumentCount);
    if (member.after != After::IsPoll) ++callCount_;
    if (trace_ && member.after != After::IsPoll) traceCall(member, arguments);
    if (member.after == After::LookSoon) throttle_.lookSoon();
    if (member.after == After::ProgramMayEnd) throttle_.mustAsk();
    return (this->*member.method)(arguments);
}

int* ConsoleObject::pollBudget(int member) {
    return members[member].after == After::IsPoll ? throttle_.budget() : nullptr;
}

void ConsoleObject::traceCall(const Member& member, Arguments& arguments) const {
    std::string line(member.name);
    for (std::size_t i = 0; i < arguments.count(); ++i) line.append(i == 0 ? " " : ",").append(traceText(arguments, i));
    trace_(line);
}

Value ConsoleObject::printString(Arguments& arguments) {
    // A text is not copied: it may be hundreds of megabytes long.
    const Value& value = arguments[0];
    console_.PrintString(value.is(Type::String) ? value.view() : arguments.text(0));
    return {};
}

Value ConsoleObject::inputString(Arguments& arguments) {
    if (arguments.isMissing(0)) throw ScriptError(script::errors::argumentNotOptional);
    if (const std::optional<std::string> line = console_.InputString()) arguments.assign(0, Value::text(*line));
    return {};
}

Value ConsoleObject::clearScreen(Arguments&) {
    console_.ClearScreen();
    return {};
}

bool ConsoleObject::mayGoOn() {
    isWithinStatement_ = true;
    const bool goesOn = throttle_.poll();
    isWithinStatement_ = false;
    throttle_.lookSoon();
    if (!goesOn) throttle_.mustAsk();
    return goesOn;
}

Value ConsoleObject::checkForEvents(Arguments&) {
    bool goesOn = throttle_.poll();
    if (steps_ != nullptr && steps_->needsEveryLine()) {
        goesOn = goesOn && steps_->passLine(console_);
        throttle_.lookSoon();
    }
    if (!goesOn) throttle_.mustAsk();
    return Value::boolean(goesOn);
}

Value ConsoleObject::stopExecution(Arguments&) {
    console_.StopExecution();
    return {};
}

Value ConsoleObject::readKey(Arguments&) {
    return Value::text(console_.ReadKey());
}

Value ConsoleObject::wait(Arguments& arguments) {
    console_.Wait(arguments.number(0));
    return {};
}

Value ConsoleObject::drawPoint(Arguments& arguments) {
    console_.DrawPoint(point(arguments, 0, 1), colour(arguments, 2));
    return {};
}

Value ConsoleObject::drawLine(Arguments& arguments) {
    const auto [start, end] = ends(arguments);
    console_.DrawLine(start, end, colour(arguments, 4));
    return {};
}

// "Filled" may come in the place of the second point, or of the colour, when these are left out: the translator
// appends it after whatever the statement has.
Value ConsoleObject::drawBox(Arguments& arguments) {
    const std::size_t last = arguments.count() - 1;
    const bool fillIsLast = (last == 2 || last == 4) && arguments[last].is(Type::Boolean);
    if (fillIsLast && last == 2) {
        console_.DrawBox(std::nullopt, point(arguments, 0, 1), std::nullopt, fill(arguments, last));
        return {};
    }
    const auto [start, end] = ends(arguments);
    if (fillIsLast)
        console_.DrawBox(start, end, std::nullopt, fill(arguments, last));
    else
        console_.DrawBox(start, end, colour(arguments, 4), fill(arguments, 5));
    return {};
}

Value ConsoleObject::drawCircle(Arguments& arguments) {
    console_.DrawCircle(point(arguments, 0, 1), single(arguments, 2), colour(arguments, 3), fill(arguments, 4));
    return {};
}

Value ConsoleObject::displayWidth(Arguments&) {
    return Value::single(console_.DisplayWidth());
}

Value ConsoleObject::displayHeight(Arguments&) {
    return Value::single(console_.DisplayHeight());
}

Value ConsoleObject::fileOpen(Arguments& arguments) {
    if (const FileError error = openDataFile(arguments); error != FileError::None)
        console_.FileOpenFailed(static_cast<int>(error));
    return {};
}

// The name must be a text, and the mode a number below 4.
FileError ConsoleObject::openDataFile(Arguments& arguments) {
    std::int32_t mode = 0;
    try {
        if (!arguments[0].is(Type::String) || arguments.number(1) >= 4) return FileError::InvalidCall;
        mode = arguments.integer(1);
    } catch (const ScriptError&) {
        return FileError::InvalidCall;
    }
    if (mode < static_cast<int>(ProgramDataFile::Mode::Read) || mode > static_cast<int>(ProgramDataFile::Mode::Append))
        return FileError::BadMode;
    return file_.open(files_, arguments.text(0), static_cast<ProgramDataFile::Mode>(mode));
}

Value ConsoleObject::fileClose(Arguments&) {
    check(file_.close());
    return {};
}

Value ConsoleObject::fileInput(Arguments& arguments) {
    if (arguments.isMissing(0)) throw ScriptError(script::errors::argumentNotOptional);
    std::string line;
    check(file_.readLine(line));
    arguments.assign(0, Value::text(line));
    return {};
}

Value ConsoleObject::fileWrite(Arguments& arguments) {
    const std::string text = arguments.text(0);
    if (file_.isOpen() && !files_.takeSpace(text.size())) throw ScriptError(static_cast<int>(FileError::DiskFull));
    check(file_.writeLine(text));
    return {};
}

Value ConsoleObject::endOfFile(Arguments&) {
    bool end = false;
    check(file_.atEnd(end));
    return Value::boolean(end);
}

}  // namespace tolvan
