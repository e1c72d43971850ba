// Where the tests find what they read and run. The paths stand in one object file, so that everything else is compiled
// alike in every checkout.
#pragma once

#include <string>

namespace tolvan {

// The folder of the checkout, without a slash at the end.
std::string sourceFolder();
// The folder of the built programs, as above.
std::string programFolder();

}  // namespace tolvan
