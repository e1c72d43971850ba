// The part of the path look-up that every system does in its own way.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tolvan {

// How many bytes at the start of the path are no names: a drive, or a share of the network.
std::size_t rootLength(std::string_view path);

// The entry with this name in the spelling of the disk. `folder` is empty, the working folder, or ends in "/".
std::optional<std::string> entryNamed(const std::string& folder, const std::string& name);

}  // namespace tolvan
