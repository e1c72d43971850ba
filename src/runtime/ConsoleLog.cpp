#include "runtime/ConsoleLog.h"

#include "platform/picturebox/PictureBox.h"
#include "runtime/ConsoleText.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tolvan {
namespace {

// So much is drawn in some hundredths of a second.
constexpr double mostWork = 3e7;
// Bytes of a line that can be seen, and more.
constexpr std::size_t longestText = std::size_t{16} << 10;

double workOf(const ConsoleLog::Call& call, const PictureBox& display) {
    const double all = static_cast<double>(display.ScaleWidth()) * display.ScaleHeight();
    const double width = std::abs(static_cast<double>(call.x2) - call.x1);
    const double height = std::abs(static_cast<double>(call.y2) - call.y1);
    switch (call.kind) {
        case ConsoleLog::Kind::Print:
        case ConsoleLog::Kind::Input:
        case ConsoleLog::Kind::Room:
            return 20'000;
        case ConsoleLog::Kind::Point:
            return 100;
        case ConsoleLog::Kind::Box:
            return 500 + (call.isSolid ? std::min(width * height, all) : width + height);
        case ConsoleLog::Kind::Circle:
            return 500 + std::min(4.0 * call.x2 * call.x2, 4 * all);
        case ConsoleLog::Kind::Line:
            break;
    }
    return 500 + std::min(width + height, all);
}

void make(const ConsoleLog::Call& call, PictureBox& picture, ConsoleText& text) {
    const auto fill = call.isSolid ? PictureBox::FillStyle::Solid : PictureBox::FillStyle::Transparent;
    const QColor colour = QColor::fromRgb(call.colour);
    switch (call.kind) {
        case ConsoleLog::Kind::Print:
            return text.PrintString(call.text);
        case ConsoleLog::Kind::Input:
            text.eraseLine();
            return text.printRuns(call.text);
        case ConsoleLog::Kind::Room:
            return text.makeRoom(call.x1);
        case ConsoleLog::Kind::Point:
            return picture.PSet(call.x1, call.y1, colour);
        case ConsoleLog::Kind::Line:
            return picture.Line(call.x1, call.y1, call.x2, call.y2, colour);
        case ConsoleLog::Kind::Box:
            return picture.Box(call.x1, call.y1, call.x2, call.y2, colour, fill);
        case ConsoleLog::Kind::Circle:
            return picture.Circle(call.x1, call.y1, call.x2, colour, fill);
    }
}

}  // namespace

void ConsoleLog::beginChapter(Chapter chapter) {
    chapter.bytes = sizeof(Chapter) + static_cast<std::size_t>(chapter.picture.sizeInBytes());
    for (const ConsoleText::SeenLine& line : chapter.lines) chapter.bytes += sizeof(line) + line.text.size();
    bytes_ += chapter.bytes;
    chapters_.push_back(std::move(chapter));
    for (; bytes_ > mostBytes && chapters_.size() > 1; chapters_.pop_front()) bytes_ -= chapters_.front().bytes;
}

void ConsoleLog::begin(PictureBox& display, const ConsoleText& text, std::uint64_t calls) {
    chapters_.clear();
    bytes_ = 0;
    beginChapter({calls, display.Image(), display.CurrentX, display.CurrentY, text.seenLines()});
}

void ConsoleLog::add(PictureBox& display, const ConsoleText& text, Call call) {
    if (!isKept()) return;
    if (chapters_.back().work > mostWork)
        beginChapter({call.number - 1, display.Image(), display.CurrentX, display.CurrentY, text.seenLines()});
    call.text.resize(std::min(call.text.size(), longestText));
    Chapter& chapter = chapters_.back();
    chapter.work += workOf(call, display);
    chapter.bytes += sizeof(Call) + call.text.size();
    bytes_ += sizeof(Call) + call.text.size();
    chapter.calls.push_back(std::move(call));
}

// What was drawn before is not seen from here on.
void ConsoleLog::clear(std::uint64_t number) {
    if (isKept()) beginChapter({number, {}, ConsoleText::leftMargin, 0});
}

std::deque<ConsoleLog::Chapter>::const_iterator ConsoleLog::chapterOf(std::uint64_t number) const {
    const auto after = std::find_if(chapters_.begin(), chapters_.end(),
                                    [number](const Chapter& chapter) { return chapter.from > number; });
    return after == chapters_.begin() ? chapters_.end() : std::prev(after);
}

void ConsoleLog::drawRest(std::uint64_t number, PictureBox& picture, ConsoleText& text) const {
    const auto first = chapterOf(number);
    double work = 0;
    for (auto chapter = first; chapter != chapters_.end(); ++chapter) {
        if (chapter != first && chapter->picture.isNull()) return;
        for (const Call& call : chapter->calls) {
            if (call.number <= number) continue;
            work += workOf(call, picture);
            const bool isPrint = call.kind == Kind::Print || call.kind == Kind::Input;
            const bool stays = isPrint ? text.hasRoom() : call.kind != Kind::Room || text.hasRoom(call.x1);
            if (!stays || work > mostWork) return;
            make(call, picture, text);
        }
    }
}

bool ConsoleLog::draw(std::uint64_t number, PictureBox& picture, ConsoleText& text) const {
    const auto found = chapterOf(number);
    text.reset();
    if (found == chapters_.end()) return false;
    const Chapter& chapter = *found;
    if (!chapter.picture.isNull()) picture.SetImage(chapter.picture);
    text.setSeenLines(chapter.lines);
    picture.CurrentX = chapter.x;
    picture.CurrentY = chapter.y;
    for (const Call& call : chapter.calls) {
        if (call.number > number) break;
        make(call, picture, text);
    }
    return true;
}

}  // namespace tolvan
