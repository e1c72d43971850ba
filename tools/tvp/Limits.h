// What a run on the command line may use, so that programs of a class can be run without looking at each first.
#pragma once

#include "runtime/host/ReachableFiles.h"

#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

namespace tolvan {

struct Limits {
    static constexpr std::uint64_t none = std::numeric_limits<std::uint64_t>::max();

    std::uint64_t milliseconds = none;  // by the clock, with waiting for input
    std::uint64_t outputBytes = none;   // printed, and as many again into data files
    std::uint64_t memoryBytes = none;   // of the texts, arrays and objects that the program holds
    std::string files = "own";          // what a program reaches: "own", "none", "all", or a folder

    // `programFile` is "-" for standard input, whose folder is the working folder.
    ReachableFiles filesOf(const std::string& programFile) const;
};

// The values of options. "64K", "10M" and "1G" are bytes, with factors of 1024; "2.5" is seconds, at least a
// thousandth. Nothing for what is none.
std::optional<std::uint64_t> readBytes(std::string_view text);
std::optional<std::uint64_t> readMilliseconds(std::string_view seconds);

inline constexpr int limitReached = 3;  // exit status

inline constexpr std::string_view timeIsOver = "tvp: stopped, its time is over\n";

}  // namespace tolvan
