#include "shell/TerminationSignals.h"

#include <QSocketNotifier>

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace tolvan {
namespace {

constexpr std::array signalsToEnd = {SIGTERM, SIGHUP, SIGINT};

int wakeUp = -1;  // the end of the pipe that the handler writes to

// Only async-signal-safe calls are allowed here: it writes one byte into the pipe, which never blocks.
void handle(int) {
    const int before = errno;
    static_cast<void>(!::write(wakeUp, "", 1));
    errno = before;
}

}  // namespace

TerminationSignals::TerminationSignals(QObject* parent) : QObject(parent) {
    if (::pipe2(pipe_.data(), O_CLOEXEC | O_NONBLOCK) != 0) return;
    wakeUp = pipe_[1];
    notifier_ = new QSocketNotifier(pipe_[0], QSocketNotifier::Read, this);
    connect(notifier_, &QSocketNotifier::activated, this, [this] {
        notifier_->setEnabled(false);
        emit received();
    });
    for (const int number : signalsToEnd)
        if (std::signal(number, handle) == SIG_IGN) std::signal(number, SIG_IGN);  // as under nohup
}

TerminationSignals::~TerminationSignals() {
    if (notifier_ == nullptr) return;
    for (const int number : signalsToEnd) std::signal(number, SIG_DFL);
    for (const int end : pipe_) ::close(end);
}

}  // namespace tolvan
