// What a process of its own does with a program that somebody else wrote.
#pragma once

#include "classroom/RunCase.h"

#include <string>
#include <string_view>

namespace tolvan::classroom {

struct ProcessWork {
    enum class Kind : std::uint8_t { Examine, RunCase };

    Kind kind = Kind::Examine;
    std::string program = {};  // its file's bytes
    std::string start = {};    // to examine: the program that was given to all
    CaseInput input = {};      // to run
    CaseLimits limits = {};
};

// Writes what comes of it to `result`. For a process that has been confined to `folder`.
void doWork(const ProcessWork& work, const std::string& folder, const Descriptor& result);

// As bytes, for a process that is another start of the program, and of such bytes.
std::string packWork(const ProcessWork& work);
ProcessWork unpackWork(std::string_view packed);

}  // namespace tolvan::classroom
