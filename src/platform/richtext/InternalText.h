// The internal text form: text of the Devanagari font, in which Latin runs stand in "{" and "}". "\{" and "\}" are
// literal braces. The backslashes of the text that stand directly before a brace, literal or not, are written twice; a
// "\" before anything else is itself. (It is a letter in the Devanagari font, and Latin paths end in one.)
#pragma once

#include "platform/richtext/StyledText.h"

#include <string>
#include <string_view>
#include <vector>

namespace tolvan {

// Styled text in internal text form. Every font but the Devanagari one counts as Latin. All text comes back from
// InternalTextRuns.
std::string RomanMark(StyledView text);

// A piece of text to be drawn in one font.
struct InternalTextRun {
    std::string text;
    Font font = Font::Devanagari;
    bool dropped = false;  // drawn lower than the line, as closed Latin runs are

    friend bool operator==(const InternalTextRun&, const InternalTextRun&) = default;
};

// The runs of a text that is to be drawn, empty ones left out. Any text will do: an unclosed "{" makes the rest
// Latin, and a "}" without "{" makes Latin what came before it.
std::vector<InternalTextRun> InternalTextRuns(std::string_view text);

// The same text with its fonts, whether dropped or not.
StyledText styledText(std::string_view internalText);
StyledText styledText(const std::vector<InternalTextRun>& runs);

// The text without its run marks, as for a file name.
std::string plainText(std::string_view internalText);

}  // namespace tolvan
