#include "runtime/ConsoleText.h"

#include "runtime/ConsoleFonts.h"
#include "translator/Blanks.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace tolvan {
namespace {

using Fill = PictureBox::FillStyle;
constexpr QColor black(0, 0, 0);

// Bytes. The narrowest letters of this many, each in a run of its own, reach beyond any screen.
constexpr std::size_t longestLine = std::size_t{16} << 10;

// As trimming does, but a text of many megabytes takes no noticeable time.
std::string_view withoutLeadingBlanks(std::string_view text) {
    static const std::string blanks(4096, ' ');
    while (text.size() >= blanks.size() && std::memcmp(text.data(), blanks.data(), blanks.size()) == 0)
        text.remove_prefix(blanks.size());
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    return text;
}

// The part of a line that can be seen. Blanks at its end cannot.
std::string_view visiblePart(std::string_view line) {
    line = withoutLeadingBlanks(line);
    return line.size() > longestLine ? line : trimBlanks(line);
}

}  // namespace

ConsoleText::ConsoleText(PictureBox& display)
    : display_(display),
      devanagari_(consoleFont(Font::Devanagari)),
      latin_(consoleFont(Font::Latin)),
      lineHeight_(display.TextHeight(devanagari_)) {
    // As low as signs below the letters allow. Latin letters that are dropped stand on one line with the others.
    devanagari_.setBaseline(0.7 * lineHeight_);
    latin_.setBaseline(devanagari_.baseline() - LatinDrop());
}

void ConsoleText::moveTo(float y) {
    display_.PSet(leftMargin, y, black);
}

void ConsoleText::scrollUp(float distance) {
    display_.ScrollUp(distance);
    scrolled_ += distance;
}

void ConsoleText::makeRoom(float height) {
    // A program may have drawn anywhere, and an input line is to be seen.
    const float top = display_.CurrentY > 0 ? std::min(display_.CurrentY, display_.ScaleHeight()) : 0;
    const float missing = top + height - display_.ScaleHeight();
    if (!(missing > 0)) return moveTo(top);
    const float distance = std::ceil(missing / lineHeight_) * lineHeight_;
    scrollUp(distance);
    moveTo(std::max(top - distance, 0.F));
}

bool ConsoleText::hasRoom(float height) const {
    return display_.CurrentY + height < display_.ScaleHeight();
}

// Drawn from the lower right corner, so that the position is back at the start of the line.
void ConsoleText::eraseLine() {
    const float y = display_.CurrentY;
    display_.Box(display_.ScaleWidth(), y + lineHeight_, leftMargin, y, black, Fill::Solid);
}

void ConsoleText::PrintString(std::string_view text) {
    if (!hasRoom()) {
        scrollUp(lineHeight_);
        moveTo(display_.ScaleHeight() - lineHeight_);
    } else {
        moveTo(display_.CurrentY);
    }
    eraseLine();
    printRuns(visiblePart(text));
}

void ConsoleText::ClearScreen() {
    display_.Box(display_.ScaleWidth(), display_.ScaleHeight(), 0, 0, black, Fill::Solid);
    erased_ = lines_.end();
    erasedAt_ = scrolled_;
}

float ConsoleText::topOf(std::size_t line) const {
    if (line >= erased_) return static_cast<float>(lines_.place(line) - scrolled_);
    return static_cast<float>(erasedAt_ - scrolled_) - lineHeight_ * static_cast<float>(erased_ - line);
}

void ConsoleText::reset() {
    display_.Cls();
    moveTo(0);
    lines_.clear();
    scrolled_ = erasedAt_ = 0;
    erased_ = 0;
}

std::vector<ConsoleText::SeenLine> ConsoleText::seenLines() const {
    std::vector<SeenLine> seen;
    for (std::size_t line = std::max(erased_, lines_.begin()); line < lines_.end(); ++line)
        if (const float top = topOf(line); top + lineHeight_ > 0 && top < display_.ScaleHeight())
            seen.push_back({lines_[line], top});
    return seen;
}

void ConsoleText::setSeenLines(const std::vector<SeenLine>& lines) {
    for (const SeenLine& line : lines) lines_.add(line.text, line.top + scrolled_);
}

void ConsoleText::printRuns(std::string_view text) {
    lines_.add(text.substr(0, longestLine), display_.CurrentY + scrolled_);
    drawRuns(display_, text);
    display_.NewLine(devanagari_);
}

void ConsoleText::drawRuns(PictureBox& picture, std::string_view text) {
    for (const InternalTextRun& run : visibleRuns(text)) {
        if (picture.CurrentX > picture.ScaleWidth()) return;
        const float drop = run.dropped ? LatinDrop() : 0;
        picture.CurrentY += drop;
        picture.Print(run.text, run.font == Font::Devanagari ? devanagari_ : latin_);
        picture.CurrentY -= drop;
    }
}

std::vector<InternalTextRun> ConsoleText::visibleRuns(std::string_view text) {
    std::vector<InternalTextRun> runs = InternalTextRuns(text.substr(0, longestLine));
    // Whether a run that is cut off here is closed somewhere decides how low it stands.
    constexpr std::size_t longestSearch = std::size_t{1} << 20;
    const bool isCut = text.size() > longestLine && !runs.empty() && runs.back().font == Font::Latin;
    if (isCut && text.substr(longestLine, longestSearch).find('}') != std::string_view::npos)
        runs.back().dropped = true;
    return runs;
}

std::vector<float> ConsoleText::edges(const std::vector<InternalTextRun>& runs) {
    const double ratio = display_.devicePixelRatioF();
    std::vector<float> edges = {0};
    for (const InternalTextRun& run : runs) {
        const float start = edges.back();
        edges.pop_back();
        PictureFont& font = run.font == Font::Devanagari ? devanagari_ : latin_;
        for (const double edge : font.edges(run.text, ratio)) edges.push_back(start + static_cast<float>(edge / ratio));
    }
    return edges;
}

}  // namespace tolvan
