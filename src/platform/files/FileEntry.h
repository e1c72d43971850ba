// What stands behind a name in a folder, and what is done with it as a whole. Calls that return int return 0, or the
// system's error number.
#pragma once

#include "platform/files/Descriptor.h"

#include <cstdint>
#include <optional>
#include <string>

namespace tolvan {

struct FileEntry {
    enum class Kind : std::uint8_t { File, Folder, CharacterDevice, BlockDevice, Other };

    Kind kind = Kind::Other;
    bool mayRun = false;         // its permissions let somebody run it; never on Windows, where its name says that
    bool hasOtherNames = false;  // which may be anywhere
    std::uint64_t size = 0;      // bytes
};

// Nothing where it cannot be told; errno says why.
std::optional<FileEntry> entryOf(const Descriptor& file);

// Whether there is a folder; links are followed.
bool isFolder(const std::string& path);

// Of an ordinary file, open for writing: takes all bytes out of it.
int emptyFile(const Descriptor& file);

int removeFile(const std::string& path);

// A new folder for this user only, below the system's one for temporary files; its name begins with `name`. Without it,
// empty; errno says why.
std::string makeTemporaryFolder(const std::string& name);

}  // namespace tolvan
