// Reads rich text: what the system writes, and of documents from elsewhere the text with its fonts, colours and sizes.
#pragma once

#include "platform/richtext/StyledText.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tolvan {

struct RichFormat {
    std::uint32_t fontName = 0;           // index into RichDocument::fontNames
    std::optional<std::uint32_t> colour;  // red in the low byte, then green, then blue; nothing: the window's own
    std::int32_t halfPoints = 24;

    friend bool operator==(const RichFormat&, const RichFormat&) = default;
};

// Characters that share a format.
struct RichRun {
    std::size_t length = 0;
    RichFormat format;
};

// A character that the 8-bit text cannot hold, as a UTF-16 unit; the text has another one in its place.
struct WideCharacter {
    std::size_t position = 0;
    char16_t unit = 0;
};

// Lines are separated by CR LF.
struct RichDocument {
    StyledText text;
    std::vector<RichRun> runs;  // together as long as the text
    std::vector<std::string> fontNames;
    std::vector<WideCharacter> wide;  // by their positions
};

// Never fails: of damaged input, what could be read; what does not begin as rich text is taken as plain Latin text. The
// end of the last paragraph is no line break.
RichDocument readRtf(std::string_view rtf);

// The font that a name stands for.
Font fontOfName(std::string_view name);

}  // namespace tolvan
