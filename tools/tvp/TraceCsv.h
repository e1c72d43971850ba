// The table of a recorded run as comma-separated values (see TraceText), with LF line ends.
#pragma once

#include "platform/richtext/StyledText.h"
#include "runtime/host/TraceTable.h"
#include "tvp/Output.h"

#include <string>
#include <string_view>
#include <vector>

namespace tolvan {

// The words of a list with commas, in Devanagari (UTF-8) or Roman letters, as the program knows them, in font codes.
// A word that the program does not have comes out empty.
std::vector<std::string> wordsOfList(std::string_view list, const RunnableProgram& program);

// `words`: the variables that have columns, in this order; none: all.
void writeTraceCsv(TraceTable& table, StyledView program, const std::vector<std::string>& words, Output& output);

}  // namespace tolvan
