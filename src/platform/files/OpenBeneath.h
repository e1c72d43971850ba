// Opening a file that is certain to be in a folder or below it: no link on the way is followed, wherever it leads.
#pragma once

#include "platform/files/Descriptor.h"

#include <string>

namespace tolvan {

// Opens `path`, relative to `folder` and with forward slashes, with the flags of open(2). Where it does not open, errno
// says why: ELOOP where a name on the way is a link, EXDEV where `path` leaves the folder ("..", or a path from the
// root).
Descriptor openBeneath(const std::string& folder, const std::string& path, int flags);

// The same, name by name, for systems whose kernel has no call for it.
Descriptor openBeneathByNames(const std::string& folder, const std::string& path, int flags);

}  // namespace tolvan
