// The runtime of stand-alone executables carries a checksum of itself, so that damage to it is told. The build writes
// the checksum into the runtime's file once it is linked.
#pragma once

#include <cstdint>
#include <istream>
#include <optional>
#include <string_view>

namespace tolvan {

struct RuntimeSeal {
    char mark[24];  // by which the place of the checksum is found in the file
    std::uint64_t checksum;
};

struct RuntimeCheck {
    std::uint64_t checksum;  // as it should be
    std::uint64_t place;     // where it stands, in bytes from the start of the file
};

// Of the program at the start of `file`: of all that the system loads of it, but for the headers, which tools
// that remove symbols change, and the checksum itself. Nothing if it is no such program, if a part is missing, or if
// the mark is not found once.
std::optional<RuntimeCheck> checkRuntime(std::istream& file, std::string_view mark);

}  // namespace tolvan
