#include "editor/panes/LeftOut.h"

#include "platform/encoding/Ascii.h"
#include "platform/transliteration/ReplaceRomanChars.h"

#include <algorithm>

namespace tolvan {
namespace {

constexpr char alone = 'X';  // the only letter whose word can come to nothing
constexpr char mark = '#';

}  // namespace

std::string leftOutWord(std::string_view line, bool inSpan) {
    if (line.find(alone) == std::string_view::npos) return {};
    for (std::size_t start = 0; start < line.size();) {
        if (line[start] == mark) inSpan = !inSpan;
        const auto first = line.begin() + static_cast<std::ptrdiff_t>(start);
        const std::string word(first, std::find_if_not(first, line.end(), isLetter));
        if (!inSpan && !word.empty() && LineConvert(word).empty()) return word;
        start += std::max<std::size_t>(word.size(), 1);
    }
    return {};
}

}  // namespace tolvan
