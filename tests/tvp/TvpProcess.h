// Runs tvp as a user does: a process of its own, with files for its input and output.
#pragma once

#include "host/TemporaryFolder.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tolvan {

struct TvpResult {
    int status = -1;  // exit status; 128 and the signal's number when a signal ended it
    std::string output;
    std::string errors;
};

class TvpProcess {
  public:
    // The folder that the process works in.
    const TemporaryFolder& folder() const { return folder_; }

    // Where its output goes instead of into the result.
    void sendOutputTo(std::string path) { outputPath_ = std::move(path); }
    // A signal to send as soon as `ready` says so, where there are signals; its output is in ".output" in the folder.
    void interruptWhen(std::function<bool()> ready, int signal) {
        ready_ = std::move(ready);
        signal_ = signal;
    }

    TvpResult run(const std::vector<std::string>& arguments, std::string_view input = {});

    // The same with a program of these Roman lines, given as the last argument.
    TvpResult runProgram(std::vector<std::string> arguments, std::string_view roman, std::string_view input = {});

  private:
    TemporaryFolder folder_;
    std::string outputPath_ = folder_ / ".output";
    std::function<bool()> ready_;
    int signal_ = 0;
};

}  // namespace tolvan
