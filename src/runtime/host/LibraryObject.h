// "Library": the object that serves those library words whose functions need more than the script language has.
//
// Texts are in internal text form. Errors raised in the script: 5 for an argument that is out of range, 13 and 6 where
// a value does not convert, 450 for a wrong number of arguments.
#pragma once

#include "platform/script/HostObject.h"
#include "runtime/host/ConsoleOperations.h"
#include "runtime/host/PollThrottle.h"

#include <chrono>
#include <cstdint>
#include <ctime>
#include <optional>
#include <random>

namespace tolvan {

class LibraryObject : public script::HostObject {
  public:
    // Both must outlive it; the throttle is that of the program's poll.
    LibraryObject(ConsoleOperations& console, PollThrottle& throttle) : console_(console), throttle_(throttle) {}

    // Random numbers of the next runs begin with this seed, and so repeat; without one they differ from run to run.
    void setSeed(std::uint32_t seed) { seed_ = seed; }
    // In the next runs waiting takes no time: the program's clock begins at this second (of time_t) and moves by what
    // it waits alone. So games and clocks can be checked.
    void simulateTime(std::time_t start) { simulatedStart_ = start; }

    // Before a run.
    void reset();

    std::string_view typeName() const override { return "Library"; }
    int findMember(std::string_view name) const override;
    script::Value call(int member, script::Arguments& arguments) override;

  private:
    using Clock = std::chrono::steady_clock;
    struct Member;
    static const Member members[];

    script::Value randomNumber(script::Arguments& arguments);
    script::Value sine(script::Arguments& arguments);
    script::Value letterCount(script::Arguments& arguments);
    script::Value letterPart(script::Arguments& arguments);
    script::Value letterFind(script::Arguments& arguments);
    script::Value letterReplace(script::Arguments& arguments);
    script::Value letterReverse(script::Arguments& arguments);
    script::Value wait(script::Arguments& arguments);
    script::Value pressedKey(script::Arguments& arguments);
    script::Value timeText(script::Arguments& arguments);
    script::Value dateText(script::Arguments& arguments);
    script::Value secondsRunning(script::Arguments& arguments);

    double secondsSinceStart() const;
    std::tm localTime() const;

    ConsoleOperations& console_;
    PollThrottle& throttle_;
    std::optional<std::uint32_t> seed_;
    std::optional<std::time_t> simulatedStart_;
    double waited_ = 0;  // seconds of this run
    std::mt19937 random_;
    Clock::time_point start_;
};

// The second at which the clock of simulated runs starts: 10:08:30 on 26 January 2026, wherever that is.
std::time_t simulatedStart();

// The sine of an angle in degrees, exact where it is 0, a half or 1.
double sineOfDegrees(double degrees);

}  // namespace tolvan
