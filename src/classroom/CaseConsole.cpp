#include "classroom/CaseConsole.h"

#include "classroom/Sandbox.h"
#include "platform/encoding/Ascii.h"
#include "platform/process/Interruption.h"
#include "platform/richtext/UnicodeText.h"
#include "platform/script/ScriptError.h"
#include "platform/transliteration/UnicodeToRoman.h"
#include "runtime/host/InputValue.h"
#include "translator/Blanks.h"

namespace tolvan::classroom {
namespace {

constexpr std::size_t pieceSize = std::size_t{32} << 10;
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

std::deque<std::string> linesOf(std::string_view text) {
    std::deque<std::string> lines;
    if (text.starts_with(byteOrderMark)) text.remove_prefix(byteOrderMark.size());
    while (!text.empty()) lines.emplace_back(takeLine(text).text);
    return lines;
}

std::string valueOf(std::deque<std::string>& lines) {
    const std::string line = std::move(lines.front());
    lines.pop_front();
    return inputValue(romanOfUnicode(line, RomanUse::Program));
}

}  // namespace

CaseConsole::CaseConsole(const CaseInput& input, std::uint64_t outputBytes, std::set<std::string> questions,
                         const Descriptor& result)
    : typed_(linesOf(input.typed)),
      keys_(linesOf(input.keys)),
      space_(outputBytes),
      questions_(std::move(questions)),
      result_(result) {
    watchTime();
}

bool CaseConsole::isLate() const {
    return isTimeOver();
}

void CaseConsole::tell(Told what, std::string_view text) {
    PackWriter piece;
    piece.number(static_cast<std::int64_t>(what));
    piece.text(text);
    waiting_ += piece.bytes();
    if (waiting_.size() > pieceSize) flush();
}

// Where nobody reads the pipe any more, there is nobody to tell it to.
void CaseConsole::flush() {
    if (result_.write(waiting_) != 0) endNow(1);
    waiting_.clear();
}

void CaseConsole::PrintString(std::string_view text) {
    text = trimBlanks(text);
    if (text.size() >= space_) printedTooMuch_ = true;
    if (printedTooMuch_) return StopExecution();
    space_ -= text.size() + 1;
    lastPrinted_ = text;
    justPrinted_ = true;
    tell(Told::Line, unicodeOfInternalText(text));
}

std::optional<std::string> CaseConsole::InputString() {
    if (justPrinted_) tell(questions_.contains(lastPrinted_) ? Told::AlwaysAsked : Told::Asked);
    justPrinted_ = false;
    if (typed_.empty()) throw script::ScriptError(script::errors::inputPastEnd);
    return valueOf(typed_);
}

void CaseConsole::ClearScreen() {
    picture_.clear();
    position_ = {};
    tell(Told::Cleared);
}

bool CaseConsole::CheckForEvents() {
    flush();
    return !stopped_ && !isLate();
}

std::string CaseConsole::ReadKey() {
    return keys_.empty() ? std::string() : valueOf(keys_);
}

void CaseConsole::draw(Figure figure, Point position) {
    justPrinted_ = false;
    position_ = position;
    picture_.add(figure);
}

void CaseConsole::DrawPoint(Point at, std::optional<Colour> colour) {
    draw({Figure::Kind::Point, at, at, 0, colour.value_or(displayForeground), false}, at);
}

void CaseConsole::DrawLine(std::optional<Point> start, Point end, std::optional<Colour> colour) {
    draw({Figure::Kind::Line, start.value_or(position_), end, 0, colour.value_or(displayForeground), false}, end);
}

void CaseConsole::DrawBox(std::optional<Point> start, Point end, std::optional<Colour> colour, Fill fill) {
    draw(
        {Figure::Kind::Box, start.value_or(position_), end, 0, colour.value_or(displayForeground), fill == Fill::Solid},
        end);
}

void CaseConsole::DrawCircle(Point centre, float radius, std::optional<Colour> colour, Fill fill) {
    draw({Figure::Kind::Circle, centre, centre, radius, colour.value_or(displayForeground), fill == Fill::Solid},
         centre);
}

void CaseConsole::FileOpenFailed(int number) {
    throw script::ScriptError(number);
}

}  // namespace tolvan::classroom
