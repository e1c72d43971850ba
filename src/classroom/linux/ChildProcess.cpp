#include "classroom/ChildProcess.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <ctime>
#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

namespace tolvan::classroom {
namespace {

constexpr int resultNumber = 3;  // the first after the standard ones

void closeAllFrom(unsigned first) {
    if (::syscall(SYS_close_range, first, ~0U, 0) == 0) return;
    const long most = ::sysconf(_SC_OPEN_MAX);
    for (long number = static_cast<long>(first); number < most; ++number) ::close(static_cast<int>(number));
}

// Closes whatever the parent has open, but for the pipe, which gets the number `resultNumber`.
void leaveParentsFiles(int result) {
    if (result != resultNumber) ::dup2(result, resultNumber);
    ::fcntl(resultNumber, F_SETFD, 0);
    closeAllFrom(resultNumber + 1);
    const int nothing = ::open("/dev/null", O_RDWR | O_NOCTTY);
    for (int standard = STDIN_FILENO; standard <= STDERR_FILENO; ++standard) ::dup2(nothing, standard);
    ::close(nothing);
}

void dieWithParent(pid_t parent) {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (::getppid() != parent) ::_exit(0);
}

[[noreturn]] void runChild(const ChildProcess::Work& work, int result, pid_t parent, const std::string& folder,
                           const ProcessLimits& limits) {
    dieWithParent(parent);
    ::setsid();
    for (const int number : {SIGINT, SIGTERM, SIGPIPE, SIGHUP, SIGALRM}) std::signal(number, SIG_DFL);
    leaveParentsFiles(result);
    ::tzset();  // reads a file, which it could not once it is confined
    if (::chdir(folder.c_str()) != 0) ::_exit(1);
    limitProcess(limits);
    confineProcess(folder);
    work(Descriptor::standard(resultNumber));
    ::_exit(0);
}

double secondsOf(const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

}  // namespace

std::optional<int> ChildProcess::runIfChild(const std::vector<std::string>&) {
    return std::nullopt;
}

ChildProcess ChildProcess::start(const ProcessWork& work, const std::string& folder, const ProcessLimits& limits) {
    return start([&](const Descriptor& result) { doWork(work, folder, result); }, folder, limits);
}

ChildProcess ChildProcess::start(const Work& work, const std::string& folder, const ProcessLimits& limits) {
    ChildProcess child;
    int ends[2] = {-1, -1};
    if (::pipe2(ends, O_CLOEXEC) != 0) return child;
    child.pipe_ = Descriptor(ends[0]);
    const Descriptor result(ends[1]);
    const pid_t parent = ::getpid();
    child.process_ = ::fork();
    if (child.process_ == 0) runChild(work, ends[1], parent, folder, limits);
    child.setLatest(limits);
    return child;
}

std::vector<bool> ChildProcess::waitFor(const std::vector<const ChildProcess*>& processes, int milliseconds) {
    std::vector<pollfd> results;
    results.reserve(processes.size());
    for (const ChildProcess* const process : processes) results.push_back({process->pipe_.number(), POLLIN, 0});
    static_cast<void>(::poll(results.data(), results.size(), milliseconds));
    std::vector<bool> ready;
    ready.reserve(results.size());
    for (const pollfd& result : results) ready.push_back(result.revents != 0);
    return ready;
}

void ChildProcess::end() {
    const auto process = static_cast<pid_t>(std::exchange(process_, 0));
    if (process <= 0) return;
    ::kill(-process, SIGKILL);
    ::kill(process, SIGKILL);
    int status = 0;
    rusage used{};
    while (::wait4(process, &status, 0, &used) < 0 && errno == EINTR) {
    }
    processorSeconds_ = secondsOf(used.ru_utime) + secondsOf(used.ru_stime);
    signal_ = WIFSIGNALED(status) ? WTERMSIG(status) : 0;
    pipe_.close();
}

}  // namespace tolvan::classroom
