// How long a program is, whatever follows it in its file.
#pragma once

#include <cstdint>
#include <istream>
#include <optional>
#include <vector>

namespace tolvan {

// The number of bytes that belong to the ELF program at the start of `file`: up to the end of the last thing that its
// headers name. Nothing if it is no ELF program of this machine's kind, or cannot be read.
std::optional<std::uint64_t> executableExtent(std::istream& file);

struct FilePart {
    std::uint64_t start;  // bytes from the start of the file
    std::uint64_t size;
};

// What the system loads of that program, without the headers at its start, which "strip" may write anew. Nothing as
// above, or if a part lies beyond the end of the file.
std::optional<std::vector<FilePart>> loadedParts(std::istream& file);

}  // namespace tolvan
