// Loading modules and building texts: time per line and per byte has to stay the same as they grow.

#include "platform/script/Executor.h"

#include <benchmark/benchmark.h>
#include <string>
#include <utility>
#include <vector>

namespace {

namespace script = tolvan::script;

class Host : public script::HostObject {
  public:
    std::string_view typeName() const override { return "ParentForm"; }
    int findMember(std::string_view) const override { return 0; }
    script::Value call(int, script::Arguments&) override { return script::Value::boolean(true); }
    int* pollBudget(int) override { return &budget_; }

  private:
    int budget_ = 0;
};

// As the translator lays it out: a poll before every statement, names of ten letters.
std::string moduleOf(std::int64_t lines) {
    std::string module = "Sub Main()\r\n";
    for (std::int64_t line = 0; line < lines; line += 2) {
        module += "if not parentform.checkforevents then err.raise 1001\r\naaaaaaaaa";
        module += static_cast<char>('b' + line % 24);
        module += " = aaaaaaaaac + " + std::to_string(line) + " * 2\r\n";
    }
    return module + "End Sub\r\n";
}

void loadModule(benchmark::State& state) {
    const std::string module = moduleOf(state.range(0));
    Host host;
    script::Executor executor;
    for (auto round : state) {
        (void)round;
        executor.addObject("ParentForm", host);
        if (!executor.addCode(module)) state.SkipWithError("the module does not load");
        executor.reset();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(module.size()));
}
BENCHMARK(loadModule)->Arg(1'000)->Arg(10'000)->Arg(100'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);

// In a variable of the procedure, of the module, and of the caller.
void buildText(benchmark::State& state, const char* name) {
    script::Executor executor;
    executor.addCode(
        "Sub own(n)\nFor i = 1 To n\ns = s & \"x\"\nNext\nEnd Sub\n"
        "Dim text\nSub outside(n)\ntext = \"\"\nFor i = 1 To n\ntext = text & \"x\" & i\nNext\nEnd Sub\n"
        "Sub callers(n)\nFor i = 1 To n\ngrow s, i\nNext\nEnd Sub\n"
        "Sub grow(t, i)\nt = t & CStr(i)\nEnd Sub");
    const script::Value count = script::Value::longInteger(static_cast<std::int32_t>(state.range(0)));
    for (auto round : state) {
        (void)round;
        if (!executor.run(name, {&count, 1})) state.SkipWithError("the script fails");
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK_CAPTURE(buildText, own, "own")->RangeMultiplier(10)->Range(10'000, 1'000'000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(buildText, outside, "outside")
    ->RangeMultiplier(10)
    ->Range(10'000, 1'000'000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(buildText, callers, "callers")
    ->RangeMultiplier(10)
    ->Range(10'000, 1'000'000)
    ->Unit(benchmark::kMillisecond);

// A counted loop as the translator lays it out, by how it is run: as it is, interpreted, with every poll kept for a
// host that may look, and recorded. The last is to take at most ten times as long as the second.
enum class Look { None, Interpreted, Watched, Recorded };

void loop(benchmark::State& state, Look look, int passes, const char* start, const std::vector<const char*>& lines) {
    const std::string poll = "if not parentform.checkforevents then err.raise 1001\r\n";
    std::string module = "Sub Main()\r\n" + poll + start + "\r\n" + poll + "for i = 1 to " + std::to_string(passes);
    for (const char* line : lines) module += "\r\n" + poll + line;
    module += "\r\n" + poll + "NEXT\r\nEnd Sub\r\n";
    class Granting : public Host {
      public:
        script::Value call(int, script::Arguments&) override {
            *pollBudget(0) = 32;
            return script::Value::boolean(true);
        }
    };
    Granting host;
    script::Recording recording;
    script::Executor executor;
    if (look == Look::Interpreted) executor.setMachineCode({.hotAfter = script::MachineCodeOptions::never});
    executor.setWatched(look == Look::Watched);
    if (look == Look::Recorded) executor.setRecording(&recording);
    executor.addObject("ParentForm", host);
    executor.addCode(module);
    for (auto round : state) {
        (void)round;
        if (!executor.run("Main")) state.SkipWithError("the script fails");
    }
    executor.setRecording(nullptr);
}

void registerLoops() {
    const struct {
        const char* name;
        int passes;
        const char* start;
        std::vector<const char*> lines;
    } loops[] = {
        {"numbers", 1'000'000, "s = 0", {"s = s + i"}},
        {"branches", 1'000'000, "s = 0", {"if i mod 3 = 0 then", "s = s + i", "else", "s = s - 1", "end if"}},
        {"shortTexts", 300'000, "s = 0", {"s = i & \"x\"", "t = s"}},
        {"textKeptAndAppended", 20'000, "s = \"\"", {"t = s", "s = s & \"x\""}},
        {"textPrepended", 20'000, "s = \"\"", {"s = \"x\" & s"}},
    };
    const std::pair<const char*, Look> looks[] = {{"plain", Look::None},
                                                  {"interpreted", Look::Interpreted},
                                                  {"watched", Look::Watched},
                                                  {"recorded", Look::Recorded}};
    for (const auto& one : loops)
        for (const auto& [name, look] : looks)
            benchmark::RegisterBenchmark((std::string("loop/") + one.name + '/' + name).c_str(), loop, look, one.passes,
                                         one.start, one.lines)
                ->Unit(benchmark::kMillisecond);
}

// A run as the console makes it: reset, load, run.
void shortRun(benchmark::State& state) {
    const std::string module = moduleOf(1'000);
    Host host;
    script::Executor executor;
    for (auto round : state) {
        (void)round;
        executor.reset();
        executor.addObject("ParentForm", host);
        if (!executor.addCode(module) || !executor.run("Main")) state.SkipWithError("the script fails");
    }
}
BENCHMARK(shortRun)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argumentCount, char** arguments) {
    benchmark::Initialize(&argumentCount, arguments);
    registerLoops();
    benchmark::RunSpecifiedBenchmarks();
}
