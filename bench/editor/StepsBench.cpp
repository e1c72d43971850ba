// Going through a program in the editor, with its windows and the values shown: what a line takes by the clock (Time)
// and of the processor (CPU). At the pace of 1,000 lines a second, as fast as it goes, and with a command for each
// line.
#include "editor/frmEditor.h"
#include "editor/steps/EditorSteps.h"
#include "editor/steps/ValuePanel.h"
#include "platform/settings/Settings.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTimer>

#include <benchmark/benchmark.h>

namespace tolvan {
namespace {

constexpr int passes = 700;
constexpr int lines = 4 * passes + 4;

// Some variables, a list, a text and what is printed now and then.
const QByteArray program =
    "\r\nmitI yAdI(20)\r\nnAv = \"kamaL\"\r\nberij = 0\r\ni sAThI 1 te " + QByteArray::number(passes) +
    " paryaMt\r\nberij = berij adhik i\r\nyAdI(bAkI(i, 20)) = berij\r\nmoThI = berij * 2\r\npuDhachA i\r\n";

class Session {
  public:
    Session() {
        QFile file(folder_.filePath(QStringLiteral("steps.tvp")));
        if (file.open(QIODevice::WriteOnly)) file.write(program);
        file.close();
        editor.show();
        editor.OpenFile(file.fileName());
    }

  private:
    QTemporaryDir folder_;
    Settings settings_{folder_.filePath(QStringLiteral("settings.conf"))};
    EditorState state_{.run = {}, .SaveBeforeExecute = false, .FormatBeforeExecute = false};
    EditorServices services_;

  public:
    frmEditor editor{state_, settings_, services_};
};

void goSlowly(benchmark::State& state, double linesPerSecond) {
    Session session;
    StepControl& control = session.editor.steps().control();
    for (auto _ : state) {
        QTimer::singleShot(0, &session.editor, [&] { control.setSpeed(linesPerSecond); });
        session.editor.RunSlowly();
    }
    state.SetItemsProcessed(state.iterations() * lines);
}

// Each command comes when the program stands, and what is shown has been painted.
void stepByStep(benchmark::State& state) {
    Session session;
    StepControl& control = session.editor.steps().control();
    QTimer next;
    QObject::connect(&next, &QTimer::timeout, [&] {
        if (control.state() != StepControl::State::Standing) return;
        session.editor.RunStepInto();
    });
    next.start(0);
    for (auto _ : state) session.editor.RunStepInto();
    state.SetItemsProcessed(state.iterations() * lines);
}

BENCHMARK_CAPTURE(goSlowly, aThousandLinesASecond, 1000)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);
BENCHMARK_CAPTURE(goSlowly, asFastAsItGoes, 1e9)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);
BENCHMARK(stepByStep)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);

}  // namespace
}  // namespace tolvan
