#include "platform/transliteration/ReplaceRomanChars.h"

#include "platform/encoding/Ascii.h"
#include "platform/transliteration/Convert.h"

namespace tolvan {
namespace {

// After each line, so that its last syllable ends like every other.
constexpr std::string_view padding = "   ";

// The length of the piece to cut from the front of `line`.
std::size_t pieceLength(std::string_view line) {
    if (line.size() <= maxConvertLength) return line.size();
    const std::size_t blank = line.rfind(' ', maxConvertLength - 1);
    return blank == std::string_view::npos ? maxConvertLength : blank + 1;
}

void appendLine(std::string_view line, std::string& padded, std::string& encoded) {
    padded.assign(line);
    padded += padding;
    for (std::string_view rest = padded; !rest.empty();) {
        const std::size_t length = pieceLength(rest);
        convert(rest.substr(0, length), encoded);
        rest.remove_prefix(length);
    }
    encoded.resize(encoded.size() - padding.size());
}

}  // namespace

std::string LineConvert(std::string_view line) {
    std::string padded;
    std::string encoded;
    appendLine(line, padded, encoded);
    return encoded;
}

std::string ReplaceRomanChars(std::string_view text) {
    if (text.empty()) return {};
    std::string padded;
    std::string encoded;
    encoded.reserve(text.size() + text.size() / 4);
    while (true) {
        const std::size_t end = text.find(lineEnd);
        appendLine(text.substr(0, end), padded, encoded);
        if (end == std::string_view::npos) return encoded;
        encoded += lineEnd;
        text.remove_prefix(end + lineEnd.size());
    }
}

}  // namespace tolvan
