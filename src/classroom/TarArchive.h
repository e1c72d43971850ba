// Plain archives (tar, as POSIX defines "ustar"), so that any system can open and make a .task file.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tolvan::classroom {

struct NamedFile;

// Names of up to 255 bytes; longer ones are cut to their last 100.
std::string writeTar(const std::vector<NamedFile>& files);

// The ordinary files of an archive. Those with a hidden name, or one that leads out of the archive, are left out.
// Nothing for what is no archive, or a damaged one.
std::optional<std::vector<NamedFile>> readTar(std::string_view bytes);

}  // namespace tolvan::classroom
