// Rich text as the system writes it: font 0 is "Times New Roman", font 1 "Sanskrit 1.2"; colour 1 is black, colour 2
// white.
#pragma once

#include "platform/richtext/StyledText.h"

#include <string>
#include <string_view>

namespace tolvan {

// What every document begins with, its final blank included.
std::string_view RtfHeader();

// A whole document with this body.
std::string rtfDocument(std::string_view body);

// The text with "\", "{" and "}" made safe for the body of a document.
std::string RtfEscape(std::string_view text);

// A text in UTF-16 made safe in the same way, to be read in the Latin font. What has no 8-bit code is written as its
// number, with "?" after it for readers that know 8-bit text alone.
std::string RtfEscape(std::u16string_view text);

// The body of a document: escaped pieces after "\f1 " and "\f0 ", line ends as "{\line}".
std::string rtfBody(StyledView text);

// A whole document. Reading it gives the same text and fonts; Font::Other is written as a font that the header does not
// name.
std::string writeRtf(StyledView text);

}  // namespace tolvan
