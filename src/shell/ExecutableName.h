// The name of the stand-alone executable that a program file becomes.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tolvan {

// The program's path with ".exe" in place of what stands from its last "." on; behind a path without any. The last "."
// of the whole path counts, also one of a folder. Nothing for a program that is itself named ".exe", which would be
// written over.
std::optional<std::string> executableName(std::string_view program);

}  // namespace tolvan
