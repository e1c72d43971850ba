// Whole runs, gone through by commands: before which lines the program stands still.

#include "host/RecordingConsole.h"
#include "library/AddLibrary.h"
#include "runtime/host/RunModule.h"
#include "runtime/host/StepControl.h"
#include "translator/ProgramText.h"

#include <gtest/gtest.h>

namespace tolvan {
namespace {

StepControl::Clock::time_point clockNow;

// Gives a command each time that the program stands still: (i)nto, (o)ver, o(u)t, (g)o on, a line to run to, or a break
// point to set there ("b4") or at a pass ("b4/3") and the next command. Without a command it is stopped.
class Stepper : public RecordingConsole {
  public:
    explicit Stepper(StepControl& steps, const std::string& commands) : steps_(steps), commands_(commands) {}

    bool StandStill(double mostSeconds) override {
        if (steps_.state() == StepControl::State::Running) {
            slowLines.push_back(steps_.line());
            clockNow +=
                std::chrono::duration_cast<StepControl::Clock::duration>(std::chrono::duration<double>(mostSeconds));
            if (slowLines.size() == pauseAfter) steps_.pause();
            return running;
        }
        stood += (stood.empty() ? "" : " ") + std::to_string(steps_.line());
        return running && command();
    }
    bool command() {
        std::string word;
        while (commands_ >> word && word[0] == 'b') {
            const std::size_t slash = word.find('/');
            steps_.setBreakPoint(std::stoi(word.substr(1)),
                                 slash == std::string::npos ? 0 : std::stoi(word.substr(slash + 1)));
            word.clear();
        }
        if (word == "i") steps_.stepInto();
        if (word == "o") steps_.stepOver();
        if (word == "u") steps_.stepOut();
        if (word == "g") steps_.goOn();
        if (!word.empty() && std::isdigit(static_cast<unsigned char>(word[0])) != 0) steps_.runTo(std::stoi(word));
        return !word.empty();
    }

    std::string stood;
    std::vector<int> slowLines;
    std::size_t pauseAfter = 0;

  private:
    StepControl& steps_;
    std::istringstream commands_;
};

// Lines 1 to 12.
const char* const roman =
    "suchanA kAhI nAhI\r\n"
    "A = 1\r\n"
    "i sAThI 1 te 3 paryaMt\r\n"
    "A = duppaT(A)\r\n"
    "puDhachA i\r\n"
    "dAkhav A\r\n"
    "upaprAyojan duppaT(n)\r\n"
    "jar n moThA 0 tar\r\n"
    "duppaT = n guNile 2\r\n"
    "saMpav jar\r\n"
    "upaprAyojan saMpav\r\n";

struct Outcome {
    std::string stood;
    std::vector<std::string> printed;
    int error;
};

Outcome run(StepControl& steps, Stepper& console) {
    const StyledText text = ProgramText(roman);
    const RunnableProgram program = runnableProgram(text);
    script::Executor executor;
    executor.setWatched(true);
    ConsoleObject object(console);
    object.setSteps(&steps);
    steps.begin(executor, program.lines);
    const int error = runModule(executor, object, program.module).number;
    steps.end();
    return {console.stood, console.calls, error};
}

TEST(StepControl, StandsStillWhereTheCommandsLead) {
    const struct {
        const char* commands;  // the first ones before the run
        const char* stood;
        bool ends;
    } cases[] = {
        {"i i i i i i i i i", "2 3 4 8 9 11 5 4 8", false},
        {"i i i o o o o o", "2 3 4 5 4 5 4 5", false},
        {"o i i i u u u", "2 3 4 8 5", true},
        {"i i i i i u 9 u g", "2 3 4 8 9 5 9 5", true},
        {"6 g", "6", true},
        {"g", "", true},
        {"b4 g g g g", "4 4 4", true},
        {"b4/2 g i b9/2 u g", "4 8 5 9", false},
        {"b9 b2 o o u g g", "2 3 9 9 9", false},
        {"b8 i o o o g g g", "2 3 4 8 8 8", true},
        {"11 i i", "11 5 4", false},
    };
    for (const auto& [commands, stood, ends] : cases) {
        StepControl steps;
        int changes = 0;
        steps.setListener([&changes] { ++changes; });
        Stepper console(steps, commands);
        console.command();
        const Outcome result = run(steps, console);
        EXPECT_EQ(result.stood, stood) << commands;
        EXPECT_EQ(result.error, ends ? 0 : 1001) << commands;
        EXPECT_EQ(result.printed, ends ? std::vector<std::string>{"print 8"} : std::vector<std::string>()) << commands;
        EXPECT_EQ(steps.state(), StepControl::State::Off);
        EXPECT_GE(changes, 2);
    }
}

TEST(StepControl, RunsSlowlyAndPauses) {
    clockNow = {};
    StepControl steps([] { return clockNow; });
    steps.setSpeed(10);
    Stepper console(steps, "i g");
    console.pauseAfter = 3;
    const Outcome result = run(steps, console);
    EXPECT_EQ(result.stood, "4 8");
    EXPECT_EQ(result.error, 0);
    EXPECT_EQ(console.slowLines, (std::vector{2, 3, 4, 9, 11, 5, 4, 8, 9, 11, 5, 4, 8, 9, 11, 5, 6}));
    EXPECT_NEAR(std::chrono::duration<double>(clockNow.time_since_epoch()).count(), 1.7, 1e-3);
}

// At full speed it is machine code, which asks seldom; from the pause on each line is gone through.
TEST(StepControl, PausesAProgramThatRunsAsMachineCode) {
    class Pausing : public Stepper {
      public:
        Pausing(StepControl& steps, script::Executor& executor)
            : Stepper(steps, "i i i i i"), steps_(steps), executor_(executor) {}
        bool CheckForEvents() override {
            for (const script::MachineCodeCount& count : executor_.machineCodeCounts()) executed += count.executed;
            if ((executed > 0 || !script::native::CodeStore::isAvailable()) && stood.empty()) steps_.pause();
            return running;
        }
        std::uint64_t executed = 0;

      private:
        StepControl& steps_;
        script::Executor& executor_;
    };
    const StyledText text = ProgramText("jovar 1 lahAn 2 tovar\r\nA = A adhik 1\r\nB = A\r\nkar\r\n");
    const RunnableProgram program = runnableProgram(text);
    script::Executor executor;
    executor.setMachineCode({.counts = true});
    executor.setWatched(true);
    StepControl steps;
    Pausing console(steps, executor);
    ConsoleObject object(console);
    object.setSteps(&steps);
    steps.begin(executor, program.lines);
    EXPECT_EQ(runModule(executor, object, program.module).number, 1001);
    steps.end();
    EXPECT_TRUE(std::string("1 2 3 4 2 3 4 2 3 4").find(console.stood) != std::string::npos) << console.stood;
    EXPECT_EQ(console.stood.size(), 11U);
}

}  // namespace
}  // namespace tolvan
