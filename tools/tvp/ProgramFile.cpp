#include "tvp/ProgramFile.h"

namespace tolvan {
namespace {

std::string withCrLf(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    char before = 0;
    for (const char c : text) {
        if (c == '\n' && before != '\r') result += '\r';
        result += c;
        before = c;
    }
    return result;
}

}  // namespace

ProgramFile parseProgramFile(std::string_view content) {
    const std::size_t lineEnd = content.find('\n');
    ProgramFile file{std::string(content.substr(0, lineEnd)), {}};
    if (file.caption.ends_with('\r')) file.caption.pop_back();
    if (lineEnd != std::string_view::npos) file.roman = withCrLf(content.substr(lineEnd + 1));
    return file;
}

}  // namespace tolvan
