// The name of the stand-alone executable that a program file becomes.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tolvan {

// The program's path with ".exe" in place of everything from its last "." on, or appended to a path without one. The
// last "." of the whole path counts, also one of a folder. Nothing for a program that is itself named ".exe", which
// would be written over.
std::optional<std::string> executableName(std::string_view program);

}  // namespace tolvan
