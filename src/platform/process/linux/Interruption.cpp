#include "platform/process/Interruption.h"

#include <csignal>
#include <sys/time.h>
#include <unistd.h>

namespace tolvan {
namespace {

void (*requestHandler)() = nullptr;
std::string_view lastWords;
int lastStatus = 0;

}  // namespace

void onRequestToEnd(void (*handler)()) {
    requestHandler = handler;
    struct sigaction action {};
    action.sa_handler = [](int) { requestHandler(); };
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) ::sigaction(signal, &action, nullptr);
}

void endAfter(std::uint64_t milliseconds, std::string_view text, int status) {
    lastWords = text;
    lastStatus = status;
    std::signal(SIGALRM, [](int) {
        static_cast<void>(!::write(STDERR_FILENO, lastWords.data(), lastWords.size()));
        ::_exit(lastStatus);
    });
    itimerval time{};
    time.it_value.tv_sec = static_cast<time_t>(milliseconds / 1000);
    time.it_value.tv_usec = static_cast<suseconds_t>(milliseconds % 1000 * 1000);
    ::setitimer(ITIMER_REAL, &time, nullptr);
}

void endNow(int status) {
    ::_exit(status);
}

}  // namespace tolvan
