#include "runtime/host/StepControl.h"

#include <limits>
#include <utility>

namespace tolvan {

void StepControl::setState(State state) {
    state_ = state;
    if (changed_) changed_();
}

void StepControl::resume(Aim aim) {
    if (state_ == State::Running) return;
    aim_ = aim;
    aimDepth_ = depth_;
    aimLine_ = 0;
    if (state_ == State::Standing) setState(State::Running);
}

void StepControl::runTo(int line) {
    resume(Aim::BreakPoint);
    aimLine_ = line;
}

void StepControl::pause() {
    if (state_ == State::Running) aim_ = Aim::AnyLine;
}

void StepControl::setBreakPoints(const std::map<int, int>& passes) {
    std::erase_if(breakPoints_, [&passes](const auto& known) {
        const auto kept = passes.find(known.first);
        return kept == passes.end() || kept->second != known.second.pass;
    });
    for (const auto& [line, pass] : passes) breakPoints_.try_emplace(line, BreakPoint{pass, 0});
}

void StepControl::begin(script::Executor& executor, const ModuleLines& lines) {
    executor_ = &executor;
    lines_ = &lines;
    line_ = 0;
    depth_ = 0;
    // A step into or over the whole program is one to its first line.
    if (std::exchange(aimDepth_, 0) == 0 && aim_ != Aim::BreakPoint) aim_ = Aim::AnyLine;
    for (auto& [line, point] : breakPoints_) point.passed = 0;
    setState(State::Running);
}

void StepControl::end() {
    executor_ = nullptr;
    lines_ = nullptr;
    line_ = 0;
    depth_ = 0;
    aim_ = Aim::BreakPoint;
    aimDepth_ = 0;
    aimLine_ = 0;
    setState(State::Off);
}

bool StepControl::needsEveryLine() const {
    return state_ != State::Off && (aim_ != Aim::BreakPoint || aimLine_ != 0 || speed_ > 0 || !breakPoints_.empty());
}

// Counts the passes of a break point, too.
bool StepControl::isReached() {
    const auto point = breakPoints_.find(line_);
    bool isAtBreakPoint = false;
    if (point != breakPoints_.end()) {
        ++point->second.passed;
        isAtBreakPoint = point->second.pass == 0 || point->second.pass == point->second.passed;
    }
    switch (aim_) {
        case Aim::AnyLine:
            return true;
        case Aim::SameDepth:
            return isAtBreakPoint || depth_ <= aimDepth_;
        case Aim::OuterDepth:
            return isAtBreakPoint || depth_ < aimDepth_;
        case Aim::BreakPoint:
            break;
    }
    return isAtBreakPoint || line_ == aimLine_;
}

bool StepControl::passLine(ConsoleOperations& console) {
    const script::Inspection inspection = executor_->inspect();
    line_ = lines_->programLine(inspection.line(0));
    depth_ = inspection.depth();
    if (isReached()) return standStill(console);
    return speed_ <= 0 || aimLine_ != 0 || goSlowly(console);
}

bool StepControl::standStill(ConsoleOperations& console) {
    aimLine_ = 0;
    setState(State::Standing);
    while (state_ == State::Standing)
        if (!console.StandStill(std::numeric_limits<double>::infinity())) return false;
    return true;
}

// The line is seen as long as the pace says. A pause in between stands still before it. A console does not wait as
// exactly as a fast pace needs it: what a line was late is made up for by the next ones, where nobody sees it.
bool StepControl::goSlowly(ConsoleOperations& console) {
    if (changed_) changed_();
    const Clock::time_point shown = now_();
    if (shown < due_ || shown - due_ > shortestSeen) due_ = shown;
    const Clock::time_point begun = due_;
    while (state_ == State::Running && speed_ > 0) {
        if (aim_ == Aim::AnyLine) return standStill(console);
        due_ = begun + std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(1 / speed_));
        const double left = std::chrono::duration<double>(due_ - now_()).count();
        if (left <= 0) break;
        if (!console.StandStill(left)) return false;
    }
    return true;
}

}  // namespace tolvan
