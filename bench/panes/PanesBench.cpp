// How soon the Devanagari pane shows what was typed, with everything that helps in the panes at work: from the key
// until both panes are painted. The median of many keys counts, and its ratio between a long program and a short one.
#include "editor/panes/PaneAids.h"
#include "editor/panes/ProgramBox.h"
#include "editor/panes/RomanBox.h"
#include "editor/panes/RomanInput.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QMimeData>
#include <QSplitter>

#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>
#include <string>
#include <vector>

namespace tolvan {
namespace {

std::string programOf(std::size_t lines) {
    const char* const statements[] = {"kramAMk sAThI 1 te 10 paryaMt",
                                      "      dAkhav saMkhyA & #\" x \"# & kramAMk & #\" = \"# & saMkhyA guNile kramAMk",
                                      "puDhachA kramAMk", "jar uttar = 7 tar dAkhav #\"#shAbAs#\"#",
                                      "suchanA he nantar"};
    std::string program;
    for (std::size_t line = 0; line < lines; ++line) program.append(statements[line % std::size(statements)]) += "\r\n";
    return program;
}

class Panes {
  public:
    explicit Panes(const std::string& program) {
        window_.addWidget(&roman);
        window_.addWidget(&program_);
        window_.resize(1000, 700);
        window_.show();
        roman.setText(program);
        roman.setFocus();
        QApplication::processEvents();
    }

    // Milliseconds until everything is painted.
    double key(Qt::Key key, const QString& text, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        const auto start = std::chrono::steady_clock::now();
        QKeyEvent press(QEvent::KeyPress, key, modifiers, text);
        QApplication::sendEvent(&roman, &press);
        QApplication::processEvents();
        const std::chrono::duration<double, std::milli> taken = std::chrono::steady_clock::now() - start;
        return taken.count();
    }

  private:
    QSplitter window_;

  public:
    RomanBox roman;

  private:
    ProgramBox program_;
    RomanInput input_{roman, program_};
    PaneAids aids_{roman, program_, input_};
};

double median(std::vector<double>& times) {
    const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
    std::nth_element(times.begin(), middle, times.end());
    return *middle;
}

void putCaretInto(Panes& panes, std::size_t line) {
    std::size_t start = 0;
    const std::string text = panes.roman.text();
    for (; line > 0; --line) start = text.find("\r\n", start) + 2;
    panes.roman.select(start, 0);
    panes.key(Qt::Key_End, {});
}

// Letters, blanks, a text in quotes and new lines, in the middle of a program.
void typing(benchmark::State& state) {
    Panes panes(programOf(static_cast<std::size_t>(state.range(0))));
    putCaretInto(panes, static_cast<std::size_t>(state.range(0)) / 2);
    const std::string typed = " dAkhav \"namaskAr\" & uttar\rsaMkhyA = saMkhyA adhik 1\r";
    std::vector<double> times;
    std::size_t next = 0;
    for (auto _ : state) {
        const char c = typed[next++ % typed.size()];
        const double taken = c == '\r' ? panes.key(Qt::Key_Return, QStringLiteral("\r"))
                                       : panes.key(Qt::Key_A, QString(QChar::fromLatin1(c)));
        state.SetIterationTime(taken / 1000);
        times.push_back(taken);
    }
    state.counters["median_ms"] = median(times);
}
BENCHMARK(typing)->Arg(50)->Arg(5000)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(1000);

// One key at the end of a line of so many characters.
void typingIntoLine(benchmark::State& state) {
    std::string line;
    while (line.size() < static_cast<std::size_t>(state.range(0))) line += "saMkhyA adhik (uttar) ";
    Panes panes(line);
    panes.key(Qt::Key_End, {});
    std::vector<double> times;
    for (auto _ : state) {
        const double taken = panes.key(Qt::Key_A, QStringLiteral("k"));
        state.SetIterationTime(taken / 1000);
        times.push_back(taken);
    }
    state.counters["median_ms"] = median(times);
}
BENCHMARK(typingIntoLine)->Arg(100)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(200);
BENCHMARK(typingIntoLine)->Arg(100'000)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(10);

// A "#" before all others: every line reads differently.
void turningEverySpan(benchmark::State& state) {
    Panes panes(programOf(5000));
    for (auto _ : state) state.SetIterationTime(panes.key(Qt::Key_NumberSign, QStringLiteral("#")) / 1000);
}
BENCHMARK(turningEverySpan)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(10);

void pasting(benchmark::State& state) {
    Panes panes("");
    auto* pasted = new QMimeData;  // the clipboard owns it
    pasted->setText(QString::fromStdString(programOf(static_cast<std::size_t>(state.range(0)))));
    QApplication::clipboard()->setMimeData(pasted);
    for (auto _ : state) {
        state.SetIterationTime(panes.key(Qt::Key_V, QStringLiteral("\x16"), Qt::ControlModifier) / 1000);
        panes.roman.setText("");
    }
}
BENCHMARK(pasting)->Arg(50)->Arg(5000)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(5);

void opening(benchmark::State& state) {
    const std::string program = programOf(static_cast<std::size_t>(state.range(0)));
    Panes panes("");
    for (auto _ : state) {
        panes.roman.setText(program);
        QApplication::processEvents();
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(program.size()));
}
BENCHMARK(opening)->Arg(5000)->Arg(30'000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tolvan
