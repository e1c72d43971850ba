// Checks a program before it runs.
#pragma once

#include "guide/Finding.h"
#include "guide/Program.h"

#include <string>
#include <string_view>
#include <vector>

namespace tolvan::guide {

class Guide {
  public:
    // What is to be said about a program, whose Roman lines are separated by CR LF: by lines, at most two a line, the
    // most useful first. A right program has no findings, and neither has a text that is too large to be one. Lines
    // that the call before has read are not read again.
    //
    // A correction is only offered if the finding goes with it and there are not more of others.
    std::vector<Finding> check(std::string_view roman);

  private:
    static std::vector<Finding> findAll(std::string_view roman, LineStore& store);
    static void verify(std::string_view roman, const std::vector<Finding>& all, std::vector<Finding>& findings);

    LineStore store_;
};

}  // namespace tolvan::guide
