// Paths as users write them. "\" separates folders as "/" does; a name is looked up as it was typed, and where no entry
// is spelled so, without regard to case. Only Windows knows drives.
#pragma once

#include <string>
#include <string_view>

namespace tolvan {

// The path with "/" for every "\". All other calls here take and give such paths.
std::string forwardSlashes(std::string_view path);

// Whether the path starts at a root, on Windows with a drive or a share of the network ("C:/", "//server/share/").
bool isFromRoot(std::string_view path);

// The path in the spelling of the disk: every folder and name that exists, in either way of looking. From the first
// one that does not exist on, the path stays as it was typed. Where several entries differ in case only, the first in
// byte order is taken; case is that of ASCII letters, on Windows that of the system.
std::string findPath(std::string_view path);

// The absolute path without links and "..", as far as it exists; on Windows in the spelling of the disk.
std::string realPath(const std::string& path);

// Whether the system keeps the file out of sight, by the names in its path from `folder` (which ends in "/") on, or by
// marks on it.
bool isHiddenIn(const std::string& folder, std::string_view pathInFolder);

// Whether the system would run a file for its name alone.
bool runsByName(std::string_view name);

}  // namespace tolvan
