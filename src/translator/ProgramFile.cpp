#include "translator/ProgramFile.h"

#include "platform/encoding/Ascii.h"
#include "translator/UnicodeProgram.h"

#include <utility>

namespace tolvan {
namespace {

// What a program is left with that has taken LF for CR LF where CR LF stood already. A file with one other line end is
// not such a file, and its carriage returns stay.
constexpr std::string_view doubledEnd = "\r\r\n";

bool hasDoubledEnds(std::string_view text) {
    std::size_t at = text.find('\n');
    if (at == std::string_view::npos) return false;
    for (; at != std::string_view::npos; at = text.find('\n', at + 1))
        if (!text.substr(0, at + 1).ends_with(doubledEnd)) return false;
    return true;
}

std::string withCrLf(std::string_view text, bool isDoubled) {
    std::string lines;
    lines.reserve(text.size() + text.size() / 16);
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\n' && isDoubled) lines.pop_back();
        if (text[i] == '\n' && (i == 0 || text[i - 1] != '\r')) lines += '\r';
        lines += text[i];
    }
    return lines;
}

// Written elsewhere, such a file may lack the caption.
ProgramFile readUnicode(std::string_view utf8) {
    RomanProgram program = romanOfUnicodeProgram(utf8);
    std::string_view rest = program.roman;
    auto [caption, end] = takeLine(rest);
    ProgramFile file;
    if (isStatement(caption))
        rest = program.roman;
    else
        file.caption = caption;
    file.roman = rest;
    file.isUnicode = true;
    file.leftOut = std::move(program.leftOut);
    return file;
}

}  // namespace

ProgramFile readProgramFile(std::string_view bytes) {
    if (const auto unicode = unicodeFileText(bytes)) return readUnicode(*unicode);
    const bool isDoubled = hasDoubledEnds(bytes);
    const auto [caption, end] = takeLine(bytes);
    if (end.empty()) return {std::string(caption), {}, ProgramFile::Problem::FirstLineWithoutEnd};
    return {std::string(caption.substr(0, caption.size() - (isDoubled ? 1 : 0))), withCrLf(bytes, isDoubled),
            ProgramFile::Problem::None};
}

std::string writeProgramFile(std::string_view caption, std::string_view roman) {
    std::string bytes;
    bytes.reserve(caption.size() + roman.size() + 4);
    return bytes.append(caption).append(lineEnd).append(roman).append(lineEnd);
}

}  // namespace tolvan
