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
    // What is to be said about a program, whose Roman lines are parted by CR LF: by lines, at most two a line, the most
    // useful first. A right program has no findings, and neither has a text that is too large to be one. Lines that the
    // call before has read are not read again.
    //
    // A correction is only offered if the finding goes with it and no other one comes.
    std::vector<Finding> check(std::string_view roman);

  private:
    std::vector<Finding> findAll(std::string_view roman, LineStore& store) const;
    void verify(std::string_view roman, std::vector<Finding>& findings) const;

    LineStore store_;
};

}  // namespace tolvan::guide
