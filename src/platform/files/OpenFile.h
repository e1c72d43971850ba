// Opening files. All paths are UTF-8 on Windows, and bytes as they stand on other systems; "/" parts folders on both.
//
// Opening never waits, for a terminal or a pipe say. Where something does not open, errno says why. On Windows a path
// that the system would take for something else than a file of this name is refused with EINVAL (see
// windows/FileNames.h), and its length is not limited to 260 characters.
#pragma once

#include "platform/files/Descriptor.h"

#include <cstdint>
#include <string>

namespace tolvan {

enum class FileUse : std::uint8_t {
    Read,
    Write,    // what is there stays, until it is written over
    Append,   // goes on at its end
    Replace,  // what is there is emptied
    Create,   // opens only a file that was not there
};

enum class Links : std::uint8_t {
    Follow,
    Refuse,  // ELOOP where the path itself is a link
};

// Each use but Read creates a file that is not there, for whom `permissions` (as of chmod(1), less the user's mask)
// say; on Windows the folder says that.
Descriptor openFile(const std::string& path, FileUse use, Links links = Links::Follow, unsigned permissions = 0666);

// Opens a file that is certain to be in the folder or below it: no link on the way is followed, wherever it leads.
// `path` is relative to `folder`. ELOOP where a name on the way is a link, EXDEV where `path` leaves the folder ("..",
// or a path from the root).
Descriptor openBeneath(const std::string& folder, const std::string& path, FileUse use);

}  // namespace tolvan
