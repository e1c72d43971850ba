#include "runtime/ProgramRun.h"

#include <algorithm>
#include <utility>

namespace tolvan {

void ProgramRun::setState(State state) {
    if (std::exchange(state_, state) != state) emit stateChanged();
}

bool ProgramRun::begin() {
    if (!isIdle()) return false;
    delayed_.clear();
    setState(State::Running);
    return true;
}

void ProgramRun::stop() {
    if (IsRunning()) setState(State::Stopping);
}

void ProgramRun::end() {
    setState(State::Idle);
}

bool ProgramRun::delaysClosing(const QWidget& window) {
    if (isIdle()) return false;
    delayed_.push_back(&window);
    setState(State::Closing);
    return true;
}

bool ProgramRun::hasDelayed(const QWidget& window) const {
    return std::find(delayed_.begin(), delayed_.end(), &window) != delayed_.end();
}

}  // namespace tolvan
