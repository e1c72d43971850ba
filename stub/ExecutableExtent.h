// How long a program is, whatever stands behind it in its file.
#pragma once

#include <cstdint>
#include <istream>
#include <optional>

namespace tolvan {

// The number of bytes that belong to the ELF program at the start of `file`: up to the end of the last thing that its
// headers name. Nothing if it is no ELF program of this machine's kind, or cannot be read.
std::optional<std::uint64_t> executableExtent(std::istream& file);

}  // namespace tolvan
