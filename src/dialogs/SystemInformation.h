// Starts the tool by which the platform tells about the machine.
#pragma once

namespace tolvan {

// False: this machine has none, or it does not start.
bool startSystemInformation();

}  // namespace tolvan
