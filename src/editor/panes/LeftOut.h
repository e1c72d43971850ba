// Words of the Roman text that stand for nothing: a letter that only changes its neighbours, such as "X", alone.
#pragma once

#include <string>
#include <string_view>

namespace tolvan {

// The first such word of a line; empty if there is none. `inSpan`: whether the line begins in a "#" span, where every
// word is kept.
std::string leftOutWord(std::string_view line, bool inSpan);

}  // namespace tolvan
