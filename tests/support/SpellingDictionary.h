// The words of Debian's Marathi spelling dictionary (aspell-mr), as UTF-8; none where it is not installed, and on
// Windows.
#pragma once

#include <string>
#include <vector>

namespace tolvan {

std::vector<std::string> spellingDictionary();

}  // namespace tolvan
