// The program that a stand-alone executable carries after its runtime.
#pragma once

#include "shell/Payload.h"

#include <optional>
#include <string>

namespace tolvan {

// Of the executable file at `path`. Nothing if the file cannot be read or holds no program that is whole.
std::optional<Payload> payloadOf(const std::string& path);

}  // namespace tolvan
