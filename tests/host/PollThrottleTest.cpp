#include "host/RecordingConsole.h"
#include "runtime/host/PollThrottle.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace tolvan {
namespace {

using namespace std::chrono_literals;

PollThrottle::Clock::time_point currentTime;

// Plays the engine: statements of a given length, each after a poll.
class Program {
  public:
    explicit Program(PollThrottle& throttle) : throttle_(throttle) {}

    int looks = 0;  // polls that reached the throttle

    bool runStatement(PollThrottle::Clock::duration length) {
        int& budget = *throttle_.budget();
        if (budget > 0) {
            --budget;
        } else {
            ++looks;
            if (!throttle_.poll()) return false;
        }
        currentTime += length;
        return true;
    }

    // How long it goes on with statements of this length after the stop.
    PollThrottle::Clock::duration stop(RecordingConsole& console, PollThrottle::Clock::duration length) {
        console.running = false;
        const auto before = currentTime;
        for (int i = 0; i < 100'000'000 && runStatement(length); ++i) continue;
        return currentTime - before;
    }

  private:
    PollThrottle& throttle_;
};

class PollThrottleTest : public testing::Test {
  protected:
    RecordingConsole console;
    PollThrottle throttle{console, [] { return currentTime; }};
    Program program{throttle};
};

TEST_F(PollThrottleTest, HandlesEventsEvery8MsAndLooksAtTheClockSeldom) {
    for (int i = 0; i < 10'000'000; ++i) ASSERT_TRUE(program.runStatement(10ns));
    EXPECT_NEAR(console.eventChecks, 100ms / 8ms, 2);
    EXPECT_LT(program.looks, 10'000'000 / 25);
}

TEST_F(PollThrottleTest, StopsWithin50MsEvenWhenStatementsBecomeSlowAllAtOnce) {
    for (const PollThrottle::Clock::duration before : {10ns, 1000ns, 1'000'000ns})
        for (const PollThrottle::Clock::duration after : {10ns, 100'000ns, 1'000'000ns}) {
            console.running = true;
            throttle.reset();
            for (int i = 0; i < 1000; ++i) program.runStatement(before);
            EXPECT_LT(program.stop(console, after), 50ms) << before.count() << " ns, then " << after.count() << " ns";
        }
}

TEST_F(PollThrottleTest, KeepsLookingAtSlowStatements) {
    for (int i = 0; i < 100; ++i) program.runStatement(5ms);
    EXPECT_GE(console.eventChecks, 40);
    EXPECT_LE(program.stop(console, 5ms), 15ms);
}

TEST_F(PollThrottleTest, AsksAgainRightAfterWhatMayStopTheProgram) {
    for (int i = 0; i < 1000; ++i) program.runStatement(10ns);
    console.running = false;
    throttle.mustAsk();
    EXPECT_FALSE(program.runStatement(10ns));
    EXPECT_FALSE(program.runStatement(10ns)) << "a stopped program stays stopped";
    console.running = true;
    throttle.reset();
    EXPECT_TRUE(program.runStatement(10ns));
}

TEST_F(PollThrottleTest, LooksAtTheClockAfterACallThatTookTime) {
    for (int i = 0; i < 1000; ++i) program.runStatement(10ns);
    console.running = false;
    throttle.lookSoon();
    EXPECT_TRUE(program.runStatement(10ns)) << "8 ms have not passed";
    currentTime += 20ms;
    throttle.lookSoon();
    EXPECT_FALSE(program.runStatement(10ns));
}

}  // namespace
}  // namespace tolvan
