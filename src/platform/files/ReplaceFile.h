// Saving without ever losing what was there: the new content is written beside the old file, brought to the disk, and
// then put in its place.
#pragma once

#include <string>
#include <string_view>

namespace tolvan {

// Puts `content` in the place of the file at `path`, or makes it if there is none. Returns 0, or the system's error
// number (errno); then the old content is still there, unless only bringing the change of the folder to the disk
// failed. Permissions stay, those of a new file are `permissions` less the user's mask; a link stays a link. What is no
// ordinary file, or may not be written, is left alone.
// On Windows the marks and rights of the old file stay, a new one has those of its folder, and `permissions` say
// nothing.
int replaceFile(const std::string& path, std::string_view content, unsigned permissions = 0666);

// Removes what interrupted saves left in this folder, as after a power failure. Saves that are under way keep theirs.
void removeUnfinishedSaves(const std::string& folder);

}  // namespace tolvan
