#include "platform/richtext/RtfWriter.h"

#include "platform/encoding/Ascii.h"
#include "platform/encoding/Windows1252.h"

#include <algorithm>
#include <cstdint>

namespace tolvan {
namespace {

bool needsEscape(char character) {
    return character == '\\' || character == '{' || character == '}';
}

// A reader takes raw control characters for layout of the source.
bool isControl(char character) {
    return static_cast<unsigned char>(character) < ' ';
}

void appendEscaped(char character, std::string& rtf) {
    static constexpr std::string_view digits = "0123456789abcdef";
    const auto code = static_cast<unsigned char>(character);
    if (isControl(character)) {
        rtf += "\\'";
        rtf += digits[code >> 4U];
        rtf += digits[code & 15U];
        return;
    }
    if (needsEscape(character)) rtf += '\\';
    rtf += character;
}

std::string_view fontWord(Font font) {
    switch (font) {
        case Font::Latin:
            return "\\f0 ";
        case Font::Devanagari:
            return "\\f1 ";
        case Font::Other:
            break;
    }
    return "\\f2 ";
}

// A piece in one font.
void appendPiece(std::string_view piece, std::string& rtf) {
    for (std::size_t i = 0; i < piece.size(); ++i) {
        if (piece.substr(i).starts_with(lineEnd)) {
            rtf += "{\\line}";
            ++i;
        } else {
            appendEscaped(piece[i], rtf);
        }
    }
}

}  // namespace

std::string_view RtfHeader() {
    return "{\\rtf1\\ansi\\ansicpg1252\\deff0\\deftab720"
           "{\\fonttbl{\\f0\\fswiss Times New Roman;}{\\f1\\fnil Sanskrit 1.2;}}"
           "{\\colortbl;\\red0\\green0\\blue0;\\red255\\green255\\blue255;} \\fs20 ";
}

std::string rtfDocument(std::string_view body) {
    return std::string(RtfHeader()).append(body).append("\\par}");
}

std::string RtfEscape(std::string_view text) {
    std::string escaped;
    escaped.reserve(text.size());
    for (const char character : text) {
        if (needsEscape(character)) escaped += '\\';
        escaped += character;
    }
    return escaped;
}

std::string RtfEscape(std::u16string_view text) {
    std::string rtf;
    for (const char16_t unit : text) {
        if (const auto code = unicodeToWindows1252(unit))
            appendEscaped(static_cast<char>(*code), rtf);
        else
            rtf.append("\\u").append(std::to_string(static_cast<std::int16_t>(unit))).append("?");
    }
    return rtf;
}

std::string rtfBody(StyledView text) {
    std::string rtf;
    rtf.reserve(text.size() * 2);
    while (!text.empty()) {
        const Font* fonts = text.fonts();
        const Font* end = std::find_if(fonts, fonts + text.size(), [&](Font font) { return font != fonts[0]; });
        const auto length = static_cast<std::size_t>(end - fonts);
        rtf += fontWord(fonts[0]);
        appendPiece(text.text().substr(0, length), rtf);
        text = text.substr(length);
    }
    return rtf;
}

std::string writeRtf(StyledView text) {
    return rtfDocument(rtfBody(text));
}

}  // namespace tolvan
