// Runs a real program off-screen, with a user who does what a test says and writes down the windows that come up; see
// UserPlugin.cpp for the deeds and the log.
#pragma once

#include "host/TemporaryFolder.h"

#include <map>
#include <string>
#include <vector>

namespace tolvan {

struct DrivenResult {
    int status = -1;                   // exit status; -1: it crashed, or did not end in time
    std::vector<std::string> windows;  // the log's lines
    std::string errors;                // standard error
};

class DrivenProcess {
  public:
    // The folder it works in. Its home folder, with its settings, is "home" in there.
    const TemporaryFolder& folder() const { return folder_; }

    void setEnvironment(const std::string& name, const std::string& value) { environment_[name] = value; }

    DrivenResult run(const std::string& program, const std::vector<std::string>& arguments,
                     const std::vector<std::string>& deeds);

  private:
    TemporaryFolder folder_;
    std::map<std::string, std::string> environment_;
};

}  // namespace tolvan
