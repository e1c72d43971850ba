// Going through the editor's program while it runs: the one place that knows where the program stands and that shows it
// in the panes and in the table of values. Commands go to control().
//
// From the first time that it stands or goes slowly a run is recorded, so that earlier moments can be shown again.
#pragma once

#include "editor/steps/BreakPoints.h"
#include "editor/steps/ValueTips.h"
#include "library/AddLibrary.h"
#include "platform/script/Recording.h"
#include "runtime/frmExec.h"
#include "runtime/host/StepControl.h"
#include "runtime/host/TraceTable.h"
#include "runtime/host/ValueTable.h"

#include <QObject>
#include <QPointer>
#include <QTimer>

#include <memory>
#include <optional>

namespace tolvan {

class ValuePanel;

class EditorSteps : public QObject {
    Q_OBJECT
  public:
    // All must outlive it.
    EditorSteps(RomanBox& roman, ProgramBox& program, ValuePanel& panel);
    ~EditorSteps() override;

    StepControl& control() { return control_; }
    BreakPoints& breakPoints() { return breakPoints_; }

    // Around a run of the program that the panes show, in this console.
    void begin(frmExec& console, RunnableProgram program);
    void end();

    // As the windows see it. A step that takes next to no time is none on the way, so that nothing flickers.
    enum class Phase : std::uint8_t { Idle, OnTheWay, Standing };
    Phase phase() const { return phase_; }
    bool isSlow() const { return control_.state() == StepControl::State::Running && control_.speed() > 0; }

    // Recording from the first line on, in the runs that begin from now on.
    void setRecordAll(bool all) { recordsAll_ = all; }
    // Of the run that is under way, or of the last one; null where nothing was recorded, or
    // while the program cannot be looked into.
    TraceTable* trace() { return isRecorded_ && mayLook() ? trace_.get() : nullptr; }
    // What was run, and the program's own text.
    const RunnableProgram& program() const { return program_; }
    const StyledText& programText() const { return text_; }

    // Shows in the panes, the table of values and the console the moment after this recorded line; null: the present.
    void showMoment(std::optional<std::uint64_t> row);
    std::optional<std::uint64_t> moment() const { return moment_; }
    // Hides the values, and what the console shows later, for who wants to guess them.
    void setConcealed(bool concealed);

  signals:
    // Another run is about to begin.
    void begun();
    void phaseChanged();
    // The program stands before a line, or goes slowly to another one.
    void moved();
    // The program waits for its user; what it has done can be seen.
    void asked();
    // Nothing is to be seen any more of a run that is over: the program is being changed.
    void forgotten();

  protected:
    // The values are seen now.
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void stateChanged();
    void setPhase(Phase phase);
    bool mayLook() const { return !console_ || console_->mayLook(); }
    void startRecording();
    void showHere();
    void showAsking();
    void showOnTheWay();
    void showValues();
    void showLine(int line);
    void forget();
    std::optional<std::string> valueOf(std::string_view word, int line);

    RomanBox& roman_;
    ProgramBox& programBox_;
    ValuePanel& panel_;
    StepControl control_;
    BreakPoints breakPoints_;
    ValueTips tips_;
    Phase phase_ = Phase::Idle;
    QTimer onTheWay_;
    QTimer frame_;  // runs until a line of a fast program is to be shown

    QPointer<frmExec> console_;  // of the program that runs, or of the last one
    RunnableProgram program_;
    StyledText text_;
    script::Recording recording_;
    std::unique_ptr<ValueTable> values_;  // while a program runs
    std::unique_ptr<TraceTable> trace_;
    bool recordsAll_ = false;
    bool isRecorded_ = false;
    std::optional<std::uint64_t> moment_;
    TraceTable::Moment shown_;  // of a moment that is over
};

}  // namespace tolvan
