// A piece of work in a process of its own, which tells its result through a pipe: it has a session of its own, no
// terminal and no open file of its parent, and ends with it.
#pragma once

#include "classroom/ProcessWork.h"
#include "classroom/Sandbox.h"
#include "platform/files/Descriptor.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tolvan::classroom {

class ChildProcess {
  public:
    using Work = std::function<void(const Descriptor& result)>;

    // Does the work of a process, if the words of the command line say that the program was started for that. The
    // result is its exit status. For the start of tvp.
    static std::optional<int> runIfChild(const std::vector<std::string>& words);

    // Starts `work`, confined to `folder`, which is its working folder. errno says why where it does not start.
    static ChildProcess start(const ProcessWork& work, const std::string& folder, const ProcessLimits& limits);
    // The same for any work; on Linux only, where the process is a copy of this one.
    static ChildProcess start(const Work& work, const std::string& folder, const ProcessLimits& limits);

    ChildProcess() = default;
    ChildProcess(ChildProcess&& other) noexcept;
    ChildProcess& operator=(ChildProcess&& other) noexcept;
    // Ends it if it has not ended.
    ~ChildProcess() { end(); }

    bool isStarted() const { return process_ > 0; }

    // Waits for a result of one of them, so many milliseconds at most; true for each that has one, or has ended.
    static std::vector<bool> waitFor(const std::vector<const ChildProcess*>& processes, int milliseconds);
    // Takes what is there; false when there will be no more.
    bool read();
    const std::string& result() const { return result_; }

    bool isLate() const { return std::chrono::steady_clock::now() > latest_; }
    // Ends it with all that it started, if it has not ended.
    void end();

    // After its end.
    double processorSeconds() const { return processorSeconds_; }
    // The signal that ended it, on Windows its exit status; 0: none.
    int signal() const { return signal_; }

  private:
    // By the clock it may take longer than the limit: other processes run, too.
    void setLatest(const ProcessLimits& limits);

    std::intptr_t process_ = 0;  // its number, or its handle
    Descriptor pipe_;
    std::string result_;
    std::chrono::steady_clock::time_point latest_;
    double processorSeconds_ = 0;
    int signal_ = 0;
};

}  // namespace tolvan::classroom
