#pragma once

#include "platform/files/OpenFile.h"

namespace tolvan {

// As openBeneath, name by name, for systems whose kernel has no call for it.
Descriptor openBeneathByNames(const std::string& folder, const std::string& path, FileUse use);

}  // namespace tolvan
