// The code formatter: indents the Roman text of a program by the blocks of the Devanagari one.
#pragma once

#include "platform/richtext/StyledText.h"

#include <string>
#include <string_view>

namespace tolvan {

// The lines of both texts are separated by CR LF and belong together by their number; a Roman line without a program
// line is only trimmed, a program line without a Roman line is not looked for. Each line is trimmed of blanks and gets
// six blanks for each block and function body around it. A block or function without an end goes on to the last line; a
// closing word outside all blocks ends the indenting of blocks. Only whole words count, and nothing after the comment
// word.
//
// The Roman text comes back unchanged if the indentation would take more than 64 MiB: blocks nested 100,000 deep would
// fill the memory with blanks.
std::string formatProgram(std::string_view roman, StyledView program);

}  // namespace tolvan
