// How long a program is, whatever follows it in its file. Programs of Linux (ELF) and of Windows (PE) are read, on
// either system: each can make executables for the other.
#pragma once

#include <cstdint>
#include <istream>
#include <optional>
#include <vector>

namespace tolvan {

enum class ProgramSystem : std::uint8_t { Linux, Windows };

// The system that the program at the start of `file` is for, by its first bytes; nothing if it is no program.
std::optional<ProgramSystem> systemOfProgram(std::istream& file);

// The number of bytes that belong to the program at the start of `file`: up to the end of the last thing that its
// headers name. Nothing if it is no program of a system that puts the low byte of a number first, or cannot be read.
std::optional<std::uint64_t> executableExtent(std::istream& file);

struct FilePart {
    std::uint64_t start;  // bytes from the start of the file
    std::uint64_t size;
};

// What the system loads of that program and keeps, without the headers at its start, which "strip" may write anew.
// Nothing as above, or if a part lies beyond the end of the file.
std::optional<std::vector<FilePart>> loadedParts(std::istream& file);

}  // namespace tolvan
