// The program file: line 1 is the caption, the rest the Roman text as it was typed, 8-bit, lines ended by CR LF. It has
// no signature, so any bytes can be read.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tolvan {

struct ProgramFile {
    enum class Problem : std::uint8_t {
        None,
        FirstLineWithoutEnd,  // no program text; all that was read is the caption
    };

    std::string caption;
    std::string roman;  // lines separated by CR LF
    Problem problem = Problem::None;
    bool isUnicode = false;       // and not 8-bit: the text was spelled in Roman letters
    std::u32string leftOut = {};  // characters of Unicode that have no place in a program
};

// A bare LF is read as CR LF; every other character is kept. A file in Unicode is taken in as romanOfUnicodeProgram
// says; its first line is the caption, unless it is a statement.
ProgramFile readProgramFile(std::string_view bytes);

// The bytes of a file. The text gets one CR LF more after it, which comes back with it when the file is read.
std::string writeProgramFile(std::string_view caption, std::string_view roman);

}  // namespace tolvan
