// As long as it lives, the stop keys work in dialogs over a running program too: they stop it and close the dialog.
#pragma once

#include <QObject>

class QKeyEvent;

namespace tolvan {

class ProgramRun;

// F4, and Ctrl+C.
bool isStopKey(const QKeyEvent& key);
bool isCtrlC(const QKeyEvent& key);

class StopKeysInDialogs : public QObject {
    Q_OBJECT

  public:
    // `run` must outlive it.
    explicit StopKeysInDialogs(ProgramRun& run);

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    ProgramRun& run_;
};

}  // namespace tolvan
