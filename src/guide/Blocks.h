// Which ends belong to which openings, and which are left over.
#pragma once

#include "guide/Program.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace tolvan::guide {

struct BlockFault {
    enum class Kind {
        Unclosed,  // `line` opens a block that nothing ends
        Unopened,  // `line` ends, or goes on with, what nothing opens
        WrongEnd,  // `line` ends a block of another kind, which `opener` opens
    };
    Kind kind;
    std::size_t line;
    std::size_t opener = 0;  // of WrongEnd
    std::size_t limit = 0;   // of Unclosed: the line before which the end is missing at the latest
};

// In the order of the lines; a missing end is one fault, at its opening.
std::vector<BlockFault> findBlockFaults(const Program& program);

// The opening line of the innermost block around a line.
std::optional<std::size_t> openerAround(const Program& program, std::size_t line);

}  // namespace tolvan::guide
