#include "runtime/ScrollBack.h"

#include "dialogs/Look.h"
#include "platform/richtext/Letters.h"
#include "platform/richtext/UnicodeText.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>

#include <algorithm>
#include <cmath>

namespace tolvan {
namespace {

constexpr float barWidth = 6;
constexpr int linesOfWheelStep = 3;

std::size_t lengthOf(const std::vector<InternalTextRun>& runs) {
    std::size_t length = 0;
    for (const InternalTextRun& run : runs) length += run.text.size();
    return length;
}

// The characters from `first` to before `end` of a line of internal text form.
std::string unicodeOfPart(std::string_view line, std::size_t first, std::size_t end) {
    const StyledText text = styledText(line);
    return unicodeOf(text.view().substr(first, end - first));
}

}  // namespace

ScrollBack::ScrollBack(PictureBox& display, ConsoleText& text) : PictureBox(&display), display_(display), text_(text) {
    setFocusPolicy(Qt::NoFocus);
    hide();
}

// The first line (may be negative) with which the lines stand exactly where the display shows them.
std::ptrdiff_t ScrollBack::topWhenLive() const {
    const std::size_t last = text_.lines().end() - 1;
    const auto above = static_cast<std::ptrdiff_t>(std::floor(text_.topOf(last) / text_.LineHeight()));
    return static_cast<std::ptrdiff_t>(last) - above;
}

std::ptrdiff_t ScrollBack::wholeRows() const {
    return std::max<std::ptrdiff_t>(static_cast<std::ptrdiff_t>((ScaleHeight() - offset_) / text_.LineHeight()), 2);
}

void ScrollBack::enter() {
    const float line = text_.LineHeight();
    const float lastTop = text_.topOf(text_.lines().end() - 1);
    offset_ = lastTop - line * std::floor(lastTop / line);
    top_ = static_cast<std::size_t>(std::max<std::ptrdiff_t>(topWhenLive(), 0));
    anchor_ = caret_ = {top_, 0};
    wheel_ = 0;
    setGeometry(display_.rect());
    show();
    raise();
}

float ScrollBack::topOf(std::size_t line) const {
    const auto rows = static_cast<std::ptrdiff_t>(line) - static_cast<std::ptrdiff_t>(top_);
    return offset_ + text_.LineHeight() * static_cast<float>(rows);
}

void ScrollBack::leave() {
    hide();
}

void ScrollBack::scrollBy(std::ptrdiff_t lines) {
    if (text_.lines().empty()) return;
    const auto from = isShown() ? static_cast<std::ptrdiff_t>(top_) : topWhenLive();
    const auto first = static_cast<std::ptrdiff_t>(text_.lines().begin());
    if (lines < 0 && from <= first) return;
    if (lines > 0 && from >= topWhenLive()) return leave();
    if (!isShown()) enter();
    scrollTo(from + lines);
}

void ScrollBack::scrollTo(std::ptrdiff_t top) {
    if (top >= topWhenLive() && anchor_ == caret_) return leave();
    const auto first = static_cast<std::ptrdiff_t>(text_.lines().begin());
    const std::ptrdiff_t last = std::max(topWhenLive(), first);
    top_ = static_cast<std::size_t>(std::clamp(top, first, last));
    draw();
}

bool ScrollBack::keyPressed(const QKeyEvent& key) {
    const bool pages = key.key() == Qt::Key_PageUp || key.key() == Qt::Key_PageDown;
    if (!isShown()) return pages && scrollByKey(key.key());
    if (key.matches(QKeySequence::Copy) && anchor_ != caret_) {
        copy();
        return true;
    }
    if (key.matches(QKeySequence::SelectAll)) {
        selectAll();
        return true;
    }
    if (key.modifiers().testFlag(Qt::ShiftModifier) && selectByKey(key.key())) return true;
    if (scrollByKey(key.key())) return true;
    const bool isModifier = key.key() == Qt::Key_Shift || key.key() == Qt::Key_Control || key.key() == Qt::Key_Alt ||
                            key.key() == Qt::Key_Meta || key.key() == Qt::Key_AltGr;
    if (!isModifier) leave();
    return isModifier;
}

// Scrolling by a page keeps one line of the page before in view.
bool ScrollBack::scrollByKey(int key) {
    switch (key) {
        case Qt::Key_PageUp:
            scrollBy(1 - wholeRows());
            return true;
        case Qt::Key_PageDown:
            scrollBy(wholeRows() - 1);
            return true;
        case Qt::Key_Home:
            scrollTo(static_cast<std::ptrdiff_t>(text_.lines().begin()));
            return true;
        case Qt::Key_End:
        case Qt::Key_Escape:
            leave();
            return true;
        default:
            return false;
    }
}

void ScrollBack::wheelTurned(int eighthsOfDegrees) {
    constexpr int step = 120;
    wheel_ += eighthsOfDegrees;
    const int steps = wheel_ / step;
    wheel_ -= steps * step;
    if (steps != 0) scrollBy(std::ptrdiff_t{-linesOfWheelStep} * steps);
}

bool ScrollBack::selectByKey(int key) {
    constexpr int carets[] = {Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down, Qt::Key_Home, Qt::Key_End};
    if (std::find(std::begin(carets), std::end(carets), key) == std::end(carets)) return false;
    moveCaret(key);
    return true;
}

void ScrollBack::moveCaret(int key) {
    const PrintedLines& lines = text_.lines();
    Place caret = caret_;
    caret.line = std::clamp(caret.line, lines.begin(), lines.end() - 1);
    const std::vector<float> edges = edgesOf(caret.line);
    const std::size_t last = edges.size() - 1;
    caret.character = std::min(caret.character, last);
    const float at = edges[caret.character];
    if (key == Qt::Key_Home) caret.character = 0;
    if (key == Qt::Key_End) caret.character = last;
    if (key == Qt::Key_Left)
        while (caret.character > 0 && edges[caret.character] >= at) --caret.character;
    if (key == Qt::Key_Right)
        while (caret.character < last && edges[caret.character] <= at) ++caret.character;
    if (key == Qt::Key_Up && caret.line > lines.begin()) --caret.line;
    if (key == Qt::Key_Down && caret.line + 1 < lines.end()) ++caret.line;
    selectTo(caret);
}

// The caret stays in sight.
void ScrollBack::selectTo(Place caret) {
    caret_ = caret;
    const auto line = static_cast<std::ptrdiff_t>(caret.line);
    const auto top = static_cast<std::ptrdiff_t>(top_);
    scrollTo(std::clamp(top, line - (wholeRows() - 1), line));
}

void ScrollBack::selectAll() {
    const PrintedLines& lines = text_.lines();
    anchor_ = {lines.begin(), 0};
    caret_ = {lines.end() - 1, lengthOf(ConsoleText::visibleRuns(lines[lines.end() - 1]))};
    draw();
}

QString ScrollBack::selectedText() const {
    const PrintedLines& lines = text_.lines();
    const auto [from, to] = std::minmax(anchor_, caret_);
    std::string selected;
    for (std::size_t line = std::max(from.line, lines.begin()); line <= to.line && line < lines.end(); ++line) {
        const std::size_t first = line == from.line ? from.character : 0;
        const std::size_t end = line == to.line ? to.character : std::string::npos;
        selected += unicodeOfPart(lines[line], first, end);
        if (line != to.line) selected += '\n';
    }
    return QString::fromStdString(selected);
}

void ScrollBack::copy() const {
    QGuiApplication::clipboard()->setText(selectedText());
}

void ScrollBack::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    pressedAt_ = event->position();
    anchor_ = caret_ = placeAt(pressedAt_);
    draw();
}

void ScrollBack::mouseMoveEvent(QMouseEvent* event) {
    mouseMoved(*event);
}

void ScrollBack::wheelEvent(QWheelEvent* event) {
    wheelTurned(event->angleDelta().y());
}

// Also for a mouse that was pressed on the display, where text is not selected before it is dragged some way.
bool ScrollBack::mouseMoved(const QMouseEvent& event) {
    if (event.type() == QEvent::MouseButtonPress) pressedAt_ = event.position();
    if (event.type() != QEvent::MouseMove || !event.buttons().testFlag(Qt::LeftButton)) return false;
    if (!isShown()) {
        const bool isDrag = (event.position() - pressedAt_).manhattanLength() >= QApplication::startDragDistance();
        if (!isDrag || text_.lines().empty()) return false;
        enter();
        anchor_ = placeAt(pressedAt_);
    }
    caret_ = placeAt(event.position());
    const bool isBelow = event.position().y() > height();
    const bool isAbove = event.position().y() < 0;
    scrollTo(static_cast<std::ptrdiff_t>(top_) + (isBelow ? 1 : 0) - (isAbove ? 1 : 0));
    return true;
}

void ScrollBack::resizeEvent(QResizeEvent* event) {
    PictureBox::resizeEvent(event);
    if (isShown()) draw();
}

ScrollBack::Place ScrollBack::placeAt(QPointF point) {
    const PrintedLines& lines = text_.lines();
    const auto row = static_cast<std::ptrdiff_t>(std::floor((point.y() - offset_) / text_.LineHeight()));
    const std::ptrdiff_t line = static_cast<std::ptrdiff_t>(top_) + row;
    if (line < static_cast<std::ptrdiff_t>(lines.begin())) return {lines.begin(), 0};
    if (line >= static_cast<std::ptrdiff_t>(lines.end()))
        return {lines.end() - 1, lengthOf(ConsoleText::visibleRuns(lines[lines.end() - 1]))};
    const auto number = static_cast<std::size_t>(line);
    const std::vector<float> edges = edgesOf(number);
    // Before the first letter of which more than half lies to the right.
    std::size_t character = 0;
    const auto isLeft = [&](std::size_t i) {
        return edges[i + 1] <= edges[i] || (edges[i] + edges[i + 1]) / 2 < static_cast<float>(point.x());
    };
    while (character + 1 < edges.size() && isLeft(character)) ++character;
    return {number, character};
}

// A letter is one piece, whatever it is made of: its further codes have no width here.
std::vector<float> ScrollBack::edgesOf(std::size_t line) {
    const std::vector<InternalTextRun> runs = ConsoleText::visibleRuns(text_.lines()[line]);
    std::vector<float> edges = text_.edges(runs);
    for (float& edge : edges) edge += ConsoleText::leftMargin;
    const StyledText text = styledText(runs);
    std::size_t start = 0;
    for (const StyledView& letter : lettersOf(text)) {
        const std::size_t end = start + letter.size();
        std::fill(edges.begin() + static_cast<std::ptrdiff_t>(start) + 1,
                  edges.begin() + static_cast<std::ptrdiff_t>(end), edges[end]);
        start = end;
    }
    return edges;
}

void ScrollBack::draw() {
    const PrintedLines& lines = text_.lines();
    Cls();
    top_ = std::max(top_, lines.begin());
    // Above the first whole line stands the lower part of one more.
    const bool isPartAbove = top_ > lines.begin();
    float y = isPartAbove ? offset_ - text_.LineHeight() : offset_;
    for (std::size_t line = isPartAbove ? top_ - 1 : top_; line < lines.end() && y < ScaleHeight(); ++line) {
        drawSelection(line, y);
        CurrentX = ConsoleText::leftMargin;
        CurrentY = y;
        text_.drawRuns(*this, lines[line]);
        y += text_.LineHeight();
    }
    drawScrollBar();
}

void ScrollBack::drawSelection(std::size_t line, float y) {
    const auto [from, to] = std::minmax(anchor_, caret_);
    if (line < from.line || line > to.line || from == to) return;
    const std::vector<float> edges = edgesOf(line);
    const auto edge = [&edges](std::size_t character) { return edges[std::min(character, edges.size() - 1)]; };
    const float left = line == from.line ? edge(from.character) : ConsoleText::leftMargin;
    const float right = line == to.line ? edge(to.character) - 1 : ScaleWidth();
    if (right >= left) Box(left, y, right, y + text_.LineHeight() - 1, look::console::selection, FillStyle::Solid);
}

// Shows which part of all lines is in view, and that this is not the display itself.
void ScrollBack::drawScrollBar() {
    const PrintedLines& lines = text_.lines();
    const auto count = static_cast<float>(lines.end() - lines.begin());
    const float shown = std::min(ScaleHeight() / text_.LineHeight(), count);
    const float from = static_cast<float>(top_ - lines.begin()) / count * ScaleHeight();
    const float length = std::max(shown / count * ScaleHeight(), text_.LineHeight() / 2);
    const float left = ScaleWidth() - barWidth;
    Box(left, 0, ScaleWidth(), ScaleHeight(), look::console::track, FillStyle::Solid);
    Box(left, std::min(from, ScaleHeight() - length), ScaleWidth(), std::min(from + length, ScaleHeight()),
        look::console::note, FillStyle::Solid);
}

}  // namespace tolvan
