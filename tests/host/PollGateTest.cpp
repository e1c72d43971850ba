#include "host/RecordingConsole.h"
#include "runtime/host/PollGate.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace tolvan {
namespace {

using namespace std::chrono_literals;

PollGate::Clock::time_point currentTime;

// Plays the engine: statements of a given length, each behind a poll.
class Program {
  public:
    explicit Program(PollGate& gate) : gate_(gate) {}

    int looks = 0;  // polls that reached the gate

    bool runStatement(PollGate::Clock::duration length) {
        int& budget = *gate_.budget();
        if (budget > 0) {
            --budget;
        } else {
            ++looks;
            if (!gate_.poll()) return false;
        }
        currentTime += length;
        return true;
    }

    // How long it goes on with statements of this length after the stop.
    PollGate::Clock::duration stop(RecordingConsole& console, PollGate::Clock::duration length) {
        console.running = false;
        const auto before = currentTime;
        for (int i = 0; i < 100'000'000 && runStatement(length); ++i) continue;
        return currentTime - before;
    }

  private:
    PollGate& gate_;
};

class PollGateTest : public testing::Test {
  protected:
    RecordingConsole console;
    PollGate gate{console, [] { return currentTime; }};
    Program program{gate};
};

TEST_F(PollGateTest, HandlesEventsEvery8MsAndLooksAtTheClockSeldom) {
    for (int i = 0; i < 10'000'000; ++i) ASSERT_TRUE(program.runStatement(10ns));
    EXPECT_NEAR(console.eventChecks, 100ms / 8ms, 2);
    EXPECT_LT(program.looks, 10'000'000 / 25);
}

TEST_F(PollGateTest, StopsWithin50MsEvenWhenStatementsBecomeSlowAllAtOnce) {
    for (const PollGate::Clock::duration before : {10ns, 1000ns, 1'000'000ns})
        for (const PollGate::Clock::duration after : {10ns, 100'000ns, 1'000'000ns}) {
            console.running = true;
            gate.reset();
            for (int i = 0; i < 1000; ++i) program.runStatement(before);
            EXPECT_LT(program.stop(console, after), 50ms) << before.count() << " ns, then " << after.count() << " ns";
        }
}

TEST_F(PollGateTest, KeepsLookingAtSlowStatements) {
    for (int i = 0; i < 100; ++i) program.runStatement(5ms);
    EXPECT_GE(console.eventChecks, 40);
    EXPECT_LE(program.stop(console, 5ms), 15ms);
}

TEST_F(PollGateTest, AsksAgainRightAfterWhatMayStopTheProgram) {
    for (int i = 0; i < 1000; ++i) program.runStatement(10ns);
    console.running = false;
    gate.mustAsk();
    EXPECT_FALSE(program.runStatement(10ns));
    EXPECT_FALSE(program.runStatement(10ns)) << "a stopped program stays stopped";
    console.running = true;
    gate.reset();
    EXPECT_TRUE(program.runStatement(10ns));
}

TEST_F(PollGateTest, LooksAtTheClockAfterACallThatTookTime) {
    for (int i = 0; i < 1000; ++i) program.runStatement(10ns);
    console.running = false;
    gate.lookSoon();
    EXPECT_TRUE(program.runStatement(10ns)) << "8 ms have not passed";
    currentTime += 20ms;
    gate.lookSoon();
    EXPECT_FALSE(program.runStatement(10ns));
}

}  // namespace
}  // namespace tolvan
