// Limits by a job object, which the process puts itself into; see
// https://learn.microsoft.com/windows/win32/procthread/job-objects. Windows gives an ordinary user no wall around files
// and sockets such as Linux has; what keeps a program to its folder there is the language itself.
#include "classroom/Sandbox.h"

#include "platform/process/Interruption.h"

#include <atomic>
#include <chrono>
#include <thread>
#include <windows.h>

namespace tolvan::classroom {
namespace {

constexpr int endedForTime = 10;
constexpr int endedFromOutside = 9;  // which happens only to what takes too long, or is over

std::atomic<bool> isWatched = false;
std::atomic<bool> timeIsOver = false;

double processorSeconds() {
    FILETIME created{};
    FILETIME ended{};
    FILETIME kernel{};
    FILETIME user{};
    ::GetProcessTimes(::GetCurrentProcess(), &created, &ended, &kernel, &user);
    const auto seconds = [](const FILETIME& time) {
        return static_cast<double>((std::uint64_t{time.dwHighDateTime} << 32U) | time.dwLowDateTime) / 1e7;
    };
    return seconds(kernel) + seconds(user);
}

// In a thread of its own: tells when the time is over, and ends what does not ask.
void watchSeconds(double seconds) {
    constexpr double patience = 0.4;
    for (;;) {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
        const double used = processorSeconds();
        if (used < seconds) continue;
        timeIsOver = true;
        if (!isWatched || used > seconds + patience) endNow(endedForTime);
    }
}

}  // namespace

std::vector<Wall> missingWalls() {
    return {Wall::Files, Wall::SystemCalls};
}

void limitProcess(const ProcessLimits& limits) {
    ::SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX);  // a crash waits for nobody
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION information{};
    JOBOBJECT_BASIC_LIMIT_INFORMATION& basic = information.BasicLimitInformation;
    basic.LimitFlags = JOB_OBJECT_LIMIT_ACTIVE_PROCESS | JOB_OBJECT_LIMIT_PROCESS_MEMORY |
                       JOB_OBJECT_LIMIT_PROCESS_TIME | JOB_OBJECT_LIMIT_DIE_ON_UNHANDLED_EXCEPTION;
    basic.ActiveProcessLimit = 1;
    basic.PerProcessUserTimeLimit.QuadPart = static_cast<LONGLONG>((limits.seconds + 2) * 1e7);
    information.ProcessMemoryLimit = static_cast<SIZE_T>(limits.memoryBytes);
    const HANDLE job = ::CreateJobObjectW(nullptr, nullptr);  // lives as long as the process
    ::SetInformationJobObject(job, JobObjectExtendedLimitInformation, &information, sizeof information);
    JOBOBJECT_BASIC_UI_RESTRICTIONS windowsDenied{};
    windowsDenied.UIRestrictionsClass = JOB_OBJECT_UILIMIT_DESKTOP | JOB_OBJECT_UILIMIT_DISPLAYSETTINGS |
                                        JOB_OBJECT_UILIMIT_EXITWINDOWS | JOB_OBJECT_UILIMIT_GLOBALATOMS |
                                        JOB_OBJECT_UILIMIT_HANDLES | JOB_OBJECT_UILIMIT_READCLIPBOARD |
                                        JOB_OBJECT_UILIMIT_SYSTEMPARAMETERS | JOB_OBJECT_UILIMIT_WRITECLIPBOARD;
    ::SetInformationJobObject(job, JobObjectBasicUIRestrictions, &windowsDenied, sizeof windowsDenied);
    ::AssignProcessToJobObject(job, ::GetCurrentProcess());
    std::thread(watchSeconds, limits.seconds).detach();
}

void watchTime() {
    isWatched = true;
}

bool isTimeOver() {
    return timeIsOver;
}

bool isSignalOfTime(int signal) {
    return signal == endedForTime || signal == endedFromOutside || signal == ERROR_NOT_ENOUGH_QUOTA;
}

void confineProcess(const std::string&) {}

}  // namespace tolvan::classroom
