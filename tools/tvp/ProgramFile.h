// A program file: its first line is the program's caption, the rest the Roman text.
#pragma once

#include "platform/richtext/StyledText.h"

#include <string>
#include <string_view>

namespace tolvan {

struct ProgramFile {
    std::string caption;
    std::string roman;  // lines parted by CR LF
};

// Line ends may be bare LF.
ProgramFile parseProgramFile(std::string_view content);

}  // namespace tolvan
