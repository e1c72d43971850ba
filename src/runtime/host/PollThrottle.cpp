#include "runtime/host/PollThrottle.h"

#include <algorithm>

namespace tolvan {

bool PollThrottle::poll() {
    const Clock::time_point now = now_();
    const Clock::duration spent = now - lastLook_;
    lastLook_ = now;
    if (mustAsk_ || now - lastEvents_ >= eventPeriod) {
        const bool goOn = console_.CheckForEvents();
        lastLook_ = lastEvents_ = now_();
        budget_ = granted_ = 0;
        mustAsk_ = !goOn;
        return goOn;
    }
    budget_ = granted_ = nextGrant(spent);
    return true;
}

void PollThrottle::lookSoon() {
    budget_ = granted_ = 0;
}

void PollThrottle::mustAsk() {
    lookSoon();
    mustAsk_ = true;
}

// As many polls as will take a quarter of a millisecond at the pace of the last ones, but at most one more than twice
// as many as before.
int PollThrottle::nextGrant(Clock::duration spent) const {
    constexpr Clock::duration target = std::chrono::microseconds(250);
    const auto polls = (granted_ + 1) * (target / std::max(spent, Clock::duration(1)));
    return static_cast<int>(std::clamp<Clock::rep>(polls, 0, std::min(2 * granted_ + 1, mostGranted)));
}

}  // namespace tolvan
