// What earlier checks found out, in a folder of the user: the same program, task and version of Tolvan Basic give the
// same result. Times of files say nothing: those on a memory stick are too coarse.
#pragma once

#include "classroom/Results.h"
#include "classroom/Task.h"

#include <optional>
#include <string>

namespace tolvan::classroom {

class ResultCache {
  public:
    // Of a task, for the version of Tolvan Basic whose executable this is. What is older than a month is removed.
    ResultCache(std::string folder, const Task& task, const std::string& executable);

    std::optional<HandInResult> find(const std::string& program) const;
    // Without effect where it cannot be written: then it is checked again.
    void keep(const std::string& program, const HandInResult& result) const;

    // The folder of this user; empty if there is none.
    static std::string usualFolder();

  private:
    std::string pathOf(const std::string& program) const;

    std::string folder_;
    std::string key_;  // of task and version
};

}  // namespace tolvan::classroom
