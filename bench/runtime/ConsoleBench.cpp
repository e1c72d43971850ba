// What a program that prints and draws without pause gets done in the console at its opening size, with its polls and
// the painting of the window; and how long it takes to stop.
#include "platform/fonts/Fonts.h"
#include "runtime/ProgramRun.h"
#include "runtime/frmExec.h"
#include "translator/ModuleLines.h"
#include "translator/ProgramText.h"
#include "translator/Translator.h"

#include <QApplication>
#include <QKeyEvent>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>
#include <string>

namespace tolvan {
namespace {

constexpr const char* poll = "\r\nif not parentform.checkforevents then err.raise 1001\r\n";

// A counted loop around one statement, as the translator writes it; `i` counts.
std::string loopModule(int count, const std::string& statement) {
    return std::string("Sub Main()") + poll + "For i = 1 To " + std::to_string(count) + poll + statement + poll +
           "Next\r\nEnd Sub\r\n";
}

void runLoop(benchmark::State& state, const char* statement, int count) {
    const std::string module = loopModule(count, statement);
    ProgramRun run;
    frmExec console(run);
    console.show();
    for (auto _ : state) console.execute(module, {});
    state.SetItemsProcessed(state.iterations() * count);
}

void measureLoop(const char* name, const char* statement, int count) {
    benchmark::RegisterBenchmark(name, runLoop, statement, count)->Unit(benchmark::kMillisecond);
}

void registerLoops() {
    measureLoop("printSameLine", "parentform.PrintString \"he {=} kml \"", 20'000);
    measureLoop("printNumbers", "parentform.PrintString i & \" * {=} \" & i * i", 20'000);
    measureLoop("printManyNumbers", "parentform.PrintString \"kml\" & i & \"rIt \" & i + 7 & \"paca\"", 20'000);
    measureLoop("printRandomWords",
                "parentform.PrintString Chr(97 + i Mod 26) & Chr(97 + i * 7 \\ 26 Mod 26) & "
                "Chr(97 + i \\ 676 Mod 26) & \"kml\"",
                20'000);
    measureLoop("drawPoints", "ParentForm.DrawPoint i Mod 797,i Mod 557,i", 300'000);
    measureLoop("drawShortLines", "parentform.DrawLine i Mod 797,i Mod 557,i Mod 797 + 15,i Mod 557 + 9,i", 100'000);
    measureLoop("drawCircles", "ParentForm.DrawCircle i Mod 797,i Mod 557,12,i, TRUE", 100'000);
    measureLoop("emptyLoop", "a = i", 1'000'000);
}

// From the text of a program of 1,000 lines until the first of them is printed.
void startPrinting(benchmark::State& state) {
    class StoppingConsole : public frmExec {
      public:
        using frmExec::frmExec;
        void PrintString(std::string_view text) override {
            frmExec::PrintString(text);
            StopExecution();
        }
    };
    std::string roman;
    for (int i = 0; i < 1000; ++i) roman += "dAkhav saMkhyA & #\" x \"# & " + std::to_string(i) + " adhik guN(3)\r\n";
    ProgramRun run;
    StoppingConsole console(run);
    for (auto _ : state) {
        console.show();
        Translator translator;
        const std::string module = translator.Compile(ProgramText(roman));
        console.execute(module, translator.moduleLines());
    }
}
BENCHMARK(startPrinting)->Unit(benchmark::kMillisecond);

// From the key that stops an endless loop around a statement until the run has returned.
void stop(benchmark::State& state, const char* statement) {
    const std::string module = loopModule(2'000'000'000, statement);
    ProgramRun run;
    frmExec console(run);
    double longest = 0;
    for (auto _ : state) {
        console.show();
        std::chrono::steady_clock::time_point pressed;
        QTimer::singleShot(100, &console, [&] {
            pressed = std::chrono::steady_clock::now();
            QApplication::postEvent(&console, new QKeyEvent(QEvent::KeyPress, Qt::Key_F4, Qt::NoModifier));
        });
        console.execute(module, {});
        const std::chrono::duration<double> waited = std::chrono::steady_clock::now() - pressed;
        state.SetIterationTime(waited.count());
        longest = std::max(longest, waited.count());
    }
    state.counters["longest_ms"] = longest * 1000;
}
BENCHMARK_CAPTURE(stop, loop, "a = i")->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(20);
BENCHMARK_CAPTURE(stop, printing, "parentform.PrintString \"kml\"")
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(20);
BENCHMARK_CAPTURE(stop, drawing, "parentform.DrawLine 0,0,800,600,i")
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(20);

}  // namespace
}  // namespace tolvan

int main(int argumentCount, char** arguments) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    const QTemporaryDir settings;  // in place of the user's own
    qputenv("XDG_CONFIG_HOME", settings.path().toLocal8Bit());
    QApplication application(argumentCount, arguments);
    tolvan::loadStandIns();
    benchmark::Initialize(&argumentCount, arguments);
    tolvan::registerLoops();
    benchmark::RunSpecifiedBenchmarks();
}
