// How the user goes through a running program: at full speed, slowly, or line by line, and where it stands still. One
// state, which the poll before each line, the commands and every window share. Knows no windows; time is only waited
// for where the console waits.
//
// The program's module has to be loaded with Executor::setWatched, so that each line that does something polls by
// itself.
#pragma once

#include "platform/script/Executor.h"
#include "runtime/host/ConsoleOperations.h"
#include "translator/ModuleLines.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>

namespace tolvan {

class StepControl {
  public:
    using Clock = std::chrono::steady_clock;
    // The clock can be another one in tests.
    explicit StepControl(Clock::time_point (*now)() = &Clock::now) : now_(now) {}

    enum class State : std::uint8_t {
        Off,       // no program is run
        Running,   // on the way: for good, or to where it is to stand
        Standing,  // before a line; a command lets it go on
    };
    State state() const { return state_; }
    // The program's line that is about to run, from 1; of a program that runs at full speed the one where it was seen
    // last. 0: none.
    int line() const { return line_; }
    // Active procedures; 1 in the main program.
    std::size_t depth() const { return depth_; }

    // After each change of the state, and of the line of a program that runs slowly.
    void setListener(std::function<void()> changed) { changed_ = std::move(changed); }

    // Commands. Those that let a standing program go on are for the next run when none is under way: it then begins by
    // them, step by step or as far as the line. Nothing happens to one that is on its way, but for pause and runTo.
    void goOn() { resume(Aim::BreakPoint); }
    void stepInto() { resume(Aim::AnyLine); }
    void stepOver() { resume(Aim::SameDepth); }  // of functions that the line calls; loops are gone through
    void stepOut() { resume(Aim::OuterDepth); }  // of the function; in the main program, to the end
    void runTo(int line);
    void pause();

    // What a screen shows for a shorter time is not seen.
    static constexpr std::chrono::microseconds shortestSeen{16'667};

    // Lines in a second; 0: full speed.
    void setSpeed(double linesPerSecond) { speed_ = linesPerSecond; }
    double speed() const { return speed_; }

    // Break points, by lines of the program. `pass`: only when the line is about to run for the n-th time, counted from
    // the beginning of the run or from now on; 0: each time.
    void setBreakPoint(int line, int pass = 0) { breakPoints_[line].pass = pass; }
    // All of them, lines with their passes. Those that there were already go on counting.
    void setBreakPoints(const std::map<int, int>& passes);

    // The run's side. Both must outlive the run.
    void begin(script::Executor& executor, const ModuleLines& lines);
    void end();
    // Whether each line has to pass by here; else the program may run at full speed.
    bool needsEveryLine() const;
    // A line is about to run. Returns when it may; false: the program is to end.
    bool passLine(ConsoleOperations& console);

  private:
    enum class Aim : std::uint8_t { BreakPoint, AnyLine, SameDepth, OuterDepth };
    struct BreakPoint {
        int pass = 0;
        int passed = 0;
    };

    void resume(Aim aim);
    void setState(State state);
    bool isReached();
    bool standStill(ConsoleOperations& console);
    bool goSlowly(ConsoleOperations& console);

    Clock::time_point (*now_)();
    State state_ = State::Off;
    int line_ = 0;
    std::size_t depth_ = 0;
    std::function<void()> changed_;

    Aim aim_ = Aim::BreakPoint;
    std::size_t aimDepth_ = 0;  // where the step began
    int aimLine_ = 0;           // of runTo; 0: none
    double speed_ = 0;
    Clock::time_point due_;  // when the line after the one seen last was to be seen
    std::map<int, BreakPoint> breakPoints_;

    script::Executor* executor_ = nullptr;
    const ModuleLines* lines_ = nullptr;
};

}  // namespace tolvan
