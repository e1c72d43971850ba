// "Library": the object behind those library words whose functions need more than the script language has.
//
// Texts are in internal text form. Errors raised in the script: 5 for an argument that is out of range, 13 and 6 where
// a value does not convert, 450 for a wrong number of arguments.
#pragma once

#include "platform/script/HostObject.h"

#include <chrono>
#include <cstdint>
#include <optional>
#include <random>

namespace tolvan {

class LibraryObject : public script::HostObject {
  public:
    // Random numbers of the next runs begin with this seed, and so repeat; without one they differ from run to run.
    void setSeed(std::uint32_t seed) { seed_ = seed; }

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
    script::Value timeText(script::Arguments& arguments);
    script::Value dateText(script::Arguments& arguments);
    script::Value secondsRunning(script::Arguments& arguments);

    std::optional<std::uint32_t> seed_;
    std::mt19937 random_;
    Clock::time_point start_;
};

// The sine of an angle in degrees, exact where it is 0, a half or 1.
double sineOfDegrees(double degrees);

}  // namespace tolvan
