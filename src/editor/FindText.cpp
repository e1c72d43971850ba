#include "editor/FindText.h"

#include "platform/encoding/Ascii.h"

#include <algorithm>

namespace tolvan {
namespace {

std::optional<FoundText> found(std::size_t start, std::size_t length) {
    if (start == std::string_view::npos) return std::nullopt;
    return FoundText{start, length};
}

}  // namespace

std::optional<FoundText> findForwards(std::string_view text, std::string_view wanted, std::size_t from,
                                      LetterCase letterCase) {
    if (wanted.empty()) return std::nullopt;
    if (letterCase == LetterCase::Exact) return found(text.find(wanted, from), wanted.size());
    return found(lowerCase(text).find(lowerCase(wanted), from), wanted.size());
}

std::optional<FoundText> findBackwards(std::string_view text, std::string_view wanted, std::size_t before,
                                       LetterCase letterCase) {
    const std::string_view searched = text.substr(0, std::min(before, text.size()));
    if (wanted.empty()) return std::nullopt;
    if (letterCase == LetterCase::Exact) return found(searched.rfind(wanted), wanted.size());
    return found(lowerCase(searched).rfind(lowerCase(wanted)), wanted.size());
}

std::string replaceAll(std::string_view text, std::string_view wanted, std::string_view replacement) {
    if (wanted.empty()) return std::string(text);
    std::string result;
    std::size_t from = 0;
    for (std::size_t at = text.find(wanted); at != std::string_view::npos; at = text.find(wanted, from)) {
        result.append(text.substr(from, at - from)).append(replacement);
        from = at + wanted.size();
    }
    return result.append(text.substr(from));
}

}  // namespace tolvan
