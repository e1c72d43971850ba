#include "platform/richtext/UnicodeText.h"

#include "platform/encoding/Unicode.h"
#include "platform/richtext/InternalText.h"

#include <algorithm>

namespace tolvan {
namespace {

void appendUnicode(std::string_view text, bool latin, std::string& utf8) {
    if (latin)
        appendUnicodeOfLatin(text, utf8);
    else
        appendUnicodeOfCodes(text, utf8);
}

}  // namespace

std::string unicodeOf(StyledView text) {
    std::string utf8;
    while (!text.empty()) {
        const bool latin = text.font(0) != Font::Devanagari;
        const auto* const end = std::find_if(text.fonts(), text.fonts() + text.size(),
                                             [&](Font font) { return (font != Font::Devanagari) != latin; });
        const auto length = static_cast<std::size_t>(end - text.fonts());
        appendUnicode(text.text().substr(0, length), latin, utf8);
        text = text.substr(length);
    }
    return utf8;
}

std::string unicodeOfInternalText(std::string_view text) {
    std::string utf8;
    for (const InternalTextRun& run : InternalTextRuns(text))
        appendUnicode(run.text, run.font != Font::Devanagari, utf8);
    return utf8;
}

}  // namespace tolvan
