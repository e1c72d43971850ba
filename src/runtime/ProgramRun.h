// The program that is run, as all windows see it: what it is doing, how it is stopped, and where it failed. One for the
// whole process, owned by its start-up.
#pragma once

#include <QObject>

#include <cstdint>
#include <string>
#include <vector>

class QWidget;

namespace tolvan {

class ProgramRun : public QObject {
    Q_OBJECT

  public:
    enum class State : std::uint8_t {
        Idle,      // no program runs
        Running,   // until it ends or is stopped
        Stopping,  // it ends at its next poll
        Closing,   // so, and windows that were closed meanwhile close after it
    };

    State state() const { return state_; }
    bool isIdle() const { return state_ == State::Idle; }
    // What the poll before every statement reads.
    bool IsRunning() const { return state_ == State::Running; }

    // False, and nothing happens, if a program runs already.
    [[nodiscard]] bool begin();
    // The one way to stop a program. Nothing if none runs.
    void stop();
    // The program has returned.
    void end();

    // For a window that is about to close: true if it must stay until the program has returned, which is stopped then.
    [[nodiscard]] bool delaysClosing(const QWidget& window);
    // Whether such a window waited for the end of the last run.
    bool hasDelayed(const QWidget& window) const;

    // First line of the program file, in Roman letters; may be empty.
    std::string ProgramCaption;
    // 0-based line of the program in which the last run failed or was stopped, as estimated by errorLineOf.
    std::int32_t ErrorLine = 0;

  signals:
    void stateChanged();

  private:
    void setState(State state);

    State state_ = State::Idle;
    std::vector<const QWidget*> delayed_;  // only compared: a window may be gone
};

}  // namespace tolvan
