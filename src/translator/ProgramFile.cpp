#include "translator/ProgramFile.h"

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

}  // namespace

ProgramFile readProgramFile(std::string_view bytes) {
    const std::size_t lineFeed = bytes.find('\n');
    if (lineFeed == std::string_view::npos) return {std::string(bytes), {}, ProgramFile::Problem::FirstLineWithoutEnd};
    std::string_view caption = bytes.substr(0, lineFeed);
    if (caption.ends_with('\r')) caption.remove_suffix(1);
    return {std::string(caption), withCrLf(bytes.substr(lineFeed + 1)), ProgramFile::Problem::None};
}

std::string writeProgramFile(std::string_view caption, std::string_view roman) {
    std::string bytes;
    bytes.reserve(caption.size() + roman.size() + 4);
    return bytes.append(caption).append("\r\n").append(roman).append("\r\n");
}

}  // namespace tolvan
