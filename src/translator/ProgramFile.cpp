#include "translator/ProgramFile.h"

#include "platform/encoding/Ascii.h"
#include "translator/UnicodeProgram.h"

#include <utility>

namespace tolvan {
namespace {

std::string withCrLf(std::string_view text) {
    std::string lines;
    lines.reserve(text.size() + text.size() / 16);
    for (std::size_t i = 0; i < text.size(); ++i) {
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
    const auto [caption, end] = takeLine(bytes);
    if (end.empty()) return {std::string(caption), {}, ProgramFile::Problem::FirstLineWithoutEnd};
    return {std::string(caption), withCrLf(bytes), ProgramFile::Problem::None};
}

std::string writeProgramFile(std::string_view caption, std::string_view roman) {
    std::string bytes;
    bytes.reserve(caption.size() + roman.size() + 4);
    return bytes.append(caption).append(lineEnd).append(roman).append(lineEnd);
}

}  // namespace tolvan
