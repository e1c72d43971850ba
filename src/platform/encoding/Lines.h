// The lines of a program as it is edited and translated: CR LF alone separates them.
#pragma once

#include "platform/encoding/Ascii.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <vector>

namespace tolvan {

// The characters of a line, without its end.
struct LinePlace {
    std::size_t begin = 0;
    std::size_t end = 0;

    constexpr std::size_t size() const { return end - begin; }
};

// The line that begins there, which is at most the end of the text.
constexpr LinePlace lineFrom(std::string_view text, std::size_t begin) {
    return {begin, std::min(text.find(lineEnd, begin), text.size())};
}

// All lines; at least one.
inline std::vector<LinePlace> linePlaces(std::string_view text) {
    std::vector<LinePlace> places = {lineFrom(text, 0)};
    while (places.back().end < text.size()) places.push_back(lineFrom(text, places.back().end + lineEnd.size()));
    return places;
}

// A line by its number, from 0; nothing where there are not so many.
constexpr std::optional<LinePlace> linePlace(std::string_view text, std::size_t number) {
    LinePlace place = lineFrom(text, 0);
    for (; number > 0; --number) {
        if (place.end == text.size()) return std::nullopt;
        place = lineFrom(text, place.end + lineEnd.size());
    }
    return place;
}

}  // namespace tolvan
