// The signals by which the system asks a process to end: at logout, at shutdown, from a terminal. They are turned into
// an event, so that unsaved text can be kept.
#pragma once

#include <QObject>

namespace tolvan {

class TerminationSignals : public QObject {
    Q_OBJECT
  public:
    // One at a time in a process. On Linux without effect where the system has no pipe left.
    explicit TerminationSignals(QObject* parent = nullptr);
    ~TerminationSignals() override;

  signals:
    void received();
};

}  // namespace tolvan
