#include "editor/steps/EditorSteps.h"

#include "editor/panes/ProgramBox.h"
#include "editor/panes/RomanBox.h"
#include "editor/steps/ValuePanel.h"
#include "platform/encoding/Deva.h"
#include "runtime/frmExec.h"

#include <QEvent>
#include <QTextBlock>

#include <algorithm>
#include <chrono>
#include <utility>

namespace tolvan {
namespace {

using namespace std::chrono_literals;

// A step that takes longer is seen to be on the way.
constexpr auto noticedTime = 60ms;
// Calls of a deep recursion that are shown.
constexpr std::size_t mostLevels = 20;

constexpr std::string_view lineText = "Aae¦ "_deva;
constexpr std::string_view valuesBefore = " cal{yaAaxICya ik<mtI"_deva;
constexpr std::string_view valuesAfter = " calLyan<trCya ik<mtI"_deva;

}  // namespace

EditorSteps::EditorSteps(RomanBox& roman, ProgramBox& program, ValuePanel& panel)
    : roman_(roman),
      programBox_(program),
      panel_(panel),
      breakPoints_(roman, program),
      tips_(roman, program, [this](std::string_view word, int line) { return valueOf(word, line); }) {
    control_.setListener([this] { stateChanged(); });
    connect(&breakPoints_, &BreakPoints::changed, this, [this] { control_.setBreakPoints(breakPoints_.lines()); });
    onTheWay_.setSingleShot(true);
    onTheWay_.setInterval(noticedTime);
    connect(&onTheWay_, &QTimer::timeout, this, [this] {
        if (control_.state() == StepControl::State::Running) setPhase(Phase::OnTheWay);
    });
    frame_.setSingleShot(true);
    frame_.setInterval(std::chrono::ceil<std::chrono::milliseconds>(StepControl::shortestSeen));
    connect(&frame_, &QTimer::timeout, this, [this] {
        if (isSlow() && mayLook()) showHere();
    });
    connect(
        &panel.model(), &ValueModel::assigned, this, [this] { showValues(); }, Qt::QueuedConnection);
    connect(roman.document(), &QTextDocument::contentsChange, this, [this](int, int, int) {
        if (phase_ == Phase::Idle) forget();
    });
    panel.installEventFilter(this);
}

EditorSteps::~EditorSteps() = default;

void EditorSteps::begin(frmExec& console, RunnableProgram program) {
    forget();
    console_ = &console;
    program_ = std::move(program);
    text_ = programBox_.text();
    values_ = std::make_unique<ValueTable>(console.executor(), program_);
    trace_ = std::make_unique<TraceTable>(recording_, program_);
    console.setSteps(&control_);
    connect(&console, &frmExec::asked, this, &EditorSteps::showAsking, Qt::UniqueConnection);
    emit begun();
}

// The values that the program ended with can still be seen.
void EditorSteps::end() {
    values_.reset();
    setPhase(Phase::Idle);
    showLine(0);
    moment_.reset();
    if (isRecorded_ && trace_->endRow() > trace_->firstRow()) showMoment(trace_->endRow() - 1);
    showLine(0);
    if (console_) console_->showPresent();
    moment_.reset();
    emit moved();
}

void EditorSteps::forget() {
    if (!isRecorded_ && panel_.model().rows().empty()) return;
    const bool hadTrace = std::exchange(isRecorded_, false);
    moment_.reset();
    shown_ = {};
    if (!panel_.model().rows().empty()) panel_.model().show({}, {});
    panel_.setTitle(std::string(ValuePanel::titleText));
    showLine(0);
    if (console_) console_->showPresent();
    if (hadTrace) emit forgotten();
}

void EditorSteps::stateChanged() {
    switch (control_.state()) {
        case StepControl::State::Off:
            return onTheWay_.stop();
        case StepControl::State::Standing:
            onTheWay_.stop();
            startRecording();
            showHere();
            return setPhase(Phase::Standing);
        case StepControl::State::Running:
            break;
    }
    if (moment_) showMoment(std::nullopt);
    if (phase_ != Phase::OnTheWay && !onTheWay_.isActive()) onTheWay_.start();
    if (recordsAll_ || control_.needsEveryLine()) startRecording();
    if (control_.speed() > 0 && control_.line() > 0) showOnTheWay();
}

// Not more often than it can be seen.
void EditorSteps::showOnTheWay() {
    if (std::chrono::duration<double>(1 / control_.speed()) > StepControl::shortestSeen)
        showHere();
    else if (!frame_.isActive())
        frame_.start();
}

void EditorSteps::setPhase(Phase phase) {
    if (phase == Phase::OnTheWay && control_.speed() <= 0) showLine(0);
    if (std::exchange(phase_, phase) != phase) emit phaseChanged();
}

void EditorSteps::startRecording() {
    if (std::exchange(isRecorded_, true)) return;
    console_->record(recording_);
}

void EditorSteps::showHere() {
    moment_.reset();
    console_->showPresent();
    showLine(control_.line());
    showValues();
    emit moved();
}

// At full speed nobody looked until now.
void EditorSteps::showAsking() {
    if (control_.state() != StepControl::State::Running || !mayLook()) return;
    showValues();
    emit asked();
}

void EditorSteps::showLine(int line) {
    for (TextPane* pane : {static_cast<TextPane*>(&roman_), static_cast<TextPane*>(&programBox_)}) {
        pane->setStepLine(line);
        if (line > 0) pane->showLine(line);
    }
}

void EditorSteps::showValues() {
    if (moment_ || !values_ || !panel_.isVisible() || !mayLook()) return;
    ValueModel::Source source;
    source.elements = [this](std::size_t row, std::size_t first, std::size_t most) {
        return values_ && mayLook() ? values_->elements(row, first, most) : std::vector<ValueTable::Element>();
    };
    if (control_.state() == StepControl::State::Standing)
        source.assign = [this](std::size_t row, const std::vector<std::uint32_t>& indexes, std::string_view roman) {
            return values_ && values_->assign(row, indexes, roman);
        };
    const int line = program_.lines.programLine(console_->executor().inspect().line(0));
    panel_.setTitle(std::string(lineText) + std::to_string(line) + std::string(valuesBefore));
    panel_.model().show(values_->read(mostLevels), std::move(source));
}

void EditorSteps::showMoment(std::optional<std::uint64_t> row) {
    TraceTable* const table = trace();
    if (!row || table == nullptr || *row < table->firstRow() || *row >= table->endRow()) {
        if (!std::exchange(moment_, std::nullopt)) return;
        if (console_) console_->showPresent();
        showLine(control_.line());
        return showValues();
    }
    moment_ = row;
    shown_ = table->moment(*row);
    const int line = table->programLine(*row);
    showLine(line);
    if (console_) console_->showMoment(table->callsAfter(*row), !panel_.model().isConcealed());
    panel_.setTitle(std::string(lineText) + std::to_string(line) + std::string(valuesAfter));
    panel_.model().show(shown_.values, {[this, at = *row](std::size_t place, std::size_t first, std::size_t most) {
                                            return trace() != nullptr && at >= trace_->firstRow() &&
                                                           place < shown_.columns.size()
                                                       ? trace_->elements(at, shown_.columns[place], first, most)
                                                       : std::vector<ValueTable::Element>();
                                        },
                                        {}});
}

void EditorSteps::setConcealed(bool concealed) {
    const bool wasConcealed = panel_.model().isConcealed();
    panel_.model().setConcealed(concealed);
    if (moment_ && concealed != wasConcealed) showMoment(moment_);
}

// Hidden values are not looked for.
bool EditorSteps::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Show && control_.state() == StepControl::State::Standing) showValues();
    return QObject::eventFilter(watched, event);
}

// Of the procedure that the line belongs to.
std::optional<std::string> EditorSteps::valueOf(std::string_view word, int line) {
    if (panel_.model().isConcealed()) return std::nullopt;
    const std::string function = program_.functionAround(line);
    if (!moment_ && values_) {
        if (control_.state() == StepControl::State::Off || !mayLook()) return std::nullopt;
        std::string text = values_->textOf(word, function);
        return text.empty() ? std::nullopt : std::optional(std::move(text));
    }
    const auto found = std::find_if(shown_.values.begin(), shown_.values.end(), [&](const ValueTable::Row& row) {
        return row.word == word && row.function == function;
    });
    return found == shown_.values.end() || found->text.empty() ? std::nullopt : std::optional(found->text);
}

}  // namespace tolvan
