// Paths as users write them. "\" separates folders as "/" does and there is no drive; a name is looked up as it was
// typed, and where no entry is spelled so, without regard to the case of ASCII letters.
#pragma once

#include <string>
#include <string_view>

namespace tolvan {

// The path with "/" for every "\".
std::string forwardSlashes(std::string_view path);

// The path in the spelling of the disk: every folder and name that exists, in either way of looking. From the first
// one that does not exist on, the path stays as it was typed. `path` has forward slashes. Of several entries that
// differ in case only, the first in byte order is taken.
std::string findPath(std::string_view path);

}  // namespace tolvan
