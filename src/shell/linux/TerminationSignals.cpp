#include "shell/TerminationSignals.h"

#include <QSocketNotifier>

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace tolvan {
namespace {

constexpr std::array signalsToEnd = {SIGTERM, SIGHUP, SIGINT};

std::array<int, 2> ends = {-1, -1};  // of the pipe that the handler writes to

// Only async-signal-safe calls are allowed here: it writes one byte into the pipe, which never blocks.
void handle(int) {
    const int before = errno;
    static_cast<void>(!::write(ends[1], "", 1));
    errno = before;
}

}  // namespace

TerminationSignals::TerminationSignals(QObject* parent) : QObject(parent) {
    if (::pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0) return;
    auto* const notifier = new QSocketNotifier(ends[0], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this, notifier] {
        notifier->setEnabled(false);
        emit received();
    });
    for (const int number : signalsToEnd)
        if (std::signal(number, handle) == SIG_IGN) std::signal(number, SIG_IGN);  // as under nohup
}

TerminationSignals::~TerminationSignals() {
    if (ends[0] < 0) return;
    for (const int number : signalsToEnd) std::signal(number, SIG_DFL);
    qDeleteAll(findChildren<QSocketNotifier*>());  // before what it watches is closed
    for (int& end : ends) ::close(std::exchange(end, -1));
}

}  // namespace tolvan
