#include "shell/TerminationSignals.h"

#include <QGuiApplication>
#include <QSessionManager>

namespace tolvan {

// At the end of the session the system asks every window and waits for the answer; a console has no such program.
TerminationSignals::TerminationSignals(QObject* parent) : QObject(parent) {
    connect(
        qGuiApp, &QGuiApplication::commitDataRequest, this, [this](QSessionManager&) { emit received(); },
        Qt::DirectConnection);
}

TerminationSignals::~TerminationSignals() = default;

}  // namespace tolvan
