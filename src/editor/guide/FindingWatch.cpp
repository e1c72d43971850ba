#include "editor/guide/FindingWatch.h"

#include "editor/panes/RomanBox.h"
#include "editor/panes/RomanInput.h"

#include <algorithm>
#include <chrono>

namespace tolvan {
namespace {

using namespace std::chrono_literals;

constexpr auto pause = 300ms;  // after the last key

}  // namespace

FindingWatch::FindingWatch(RomanBox& roman, const RomanInput& input) : roman_(roman) {
    timer_.setInterval(pause);
    timer_.setSingleShot(true);
    connect(&timer_, &QTimer::timeout, this, &FindingWatch::check);
    connect(&input, &RomanInput::programChanged, this, &FindingWatch::textChanged);
    connect(&roman, &RomanBox::caretMoved, this, &FindingWatch::caretMoved);
    lines_ = roman.lineCount();
}

void FindingWatch::setEnabled(bool enabled) {
    if (enabled_ == enabled) return;
    enabled_ = enabled;
    all_.clear();
    show();
    if (enabled_) timer_.start();
}

// Findings of the changed line are removed at once; those after it move with their lines.
void FindingWatch::textChanged() {
    const int more = roman_.lineCount() - std::exchange(lines_, roman_.lineCount());
    const bool isTyped = roman_.document()->isUndoAvailable();  // and not a text that was opened
    typedLine_ = isTyped ? roman_.currentLine() : 0;
    isTyping_ = isTyped;
    caretLine_ = roman_.currentLine();
    if (!enabled_) return;
    timer_.start();
    if (all_.empty()) return;
    const int changed = roman_.currentLine() - std::max(0, more);
    std::erase_if(all_, [&](const guide::Finding& finding) {
        const int line = static_cast<int>(finding.line);
        return line >= changed && line <= changed + std::max(0, -more);
    });
    for (guide::Finding& finding : all_) move(finding, changed, more);
    show();
}

// So many lines were put in after `changed`, or taken away.
void FindingWatch::move(guide::Finding& finding, int changed, int more) {
    const auto moved = [more](std::size_t line) {
        return static_cast<std::size_t>(std::max(1, static_cast<int>(line) + more));
    };
    if (finding.firstLine > static_cast<std::size_t>(changed)) finding.firstLine = moved(finding.firstLine);
    if (finding.lastLine >= static_cast<std::size_t>(changed)) finding.lastLine = moved(finding.lastLine);
    if (finding.line <= static_cast<std::size_t>(changed)) return;
    finding.line = moved(finding.line);
    finding.corrections.clear();  // until the next check
}

void FindingWatch::caretMoved() {
    if (!isTyping_ || lines_ != roman_.lineCount() || roman_.currentLine() == caretLine_) return;
    caretLine_ = roman_.currentLine();
    if (caretLine_ != typedLine_) typedLine_ = 0;
    if (!timer_.isActive()) show();
}

void FindingWatch::checkNow() {
    typedLine_ = 0;
    isTyping_ = false;
    if (enabled_) check();
}

void FindingWatch::check() {
    timer_.stop();
    all_ = guide_.check(roman_.text());
    show();
}

bool FindingWatch::waits(const guide::Finding& finding) const {
    if (static_cast<int>(finding.line) == typedLine_) return true;
    const auto caret = static_cast<std::size_t>(roman_.currentLine());
    return isTyping_ && finding.firstLine <= caret && caret <= finding.lastLine;
}

void FindingWatch::show() {
    std::vector<guide::Finding> shown = all_;
    std::erase_if(shown, [this](const guide::Finding& finding) { return waits(finding); });
    if (shown.empty() && shown_.empty()) return;
    shown_ = std::move(shown);
    emit findingsChanged();
}

}  // namespace tolvan
