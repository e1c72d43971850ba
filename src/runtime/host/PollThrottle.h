// Decides how often the poll before every statement of a program reaches the console.
//
// The window's events are to run about every 8 ms, however long a statement takes; a poll in between is to cost next
// to nothing. So the throttle grants the engine a budget of polls that need not ask at all, looks at the clock when
// that is used up, and lets the console handle its events when the time has come.
#pragma once

#include "runtime/host/ConsoleOperations.h"

#include <chrono>

namespace tolvan {

class PollThrottle {
  public:
    using Clock = std::chrono::steady_clock;
    static constexpr std::chrono::milliseconds eventPeriod{8};
    // Few enough that the clock is read in time even if statements suddenly take a millisecond each; many enough that
    // reading it (some 20 ns) comes to less than a nanosecond for each poll.
    static constexpr int mostGranted = 32;

    // The clock can be another one in tests.
    explicit PollThrottle(ConsoleOperations& console, Clock::time_point (*now)() = &Clock::now)
        : console_(console), now_(now) {}

    // Before a run.
    void reset() { mustAsk(); }
    // The budget is used up: whether the program goes on.
    bool poll();
    // Something took time that polls do not measure: the next poll looks at the clock.
    void lookSoon();
    // The program may have been stopped: the next poll asks the console, whatever the time.
    void mustAsk();

    // How many polls may still take "yes" for granted; counted down by the engine.
    int* budget() { return &budget_; }

  private:
    int nextGrant(Clock::duration spent) const;

    ConsoleOperations& console_;
    Clock::time_point (*now_)();
    Clock::time_point lastLook_;
    Clock::time_point lastEvents_;
    int budget_ = 0;
    int granted_ = 0;  // the budget at the last look
    bool mustAsk_ = true;
};

}  // namespace tolvan
