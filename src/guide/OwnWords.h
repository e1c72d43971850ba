// Words of the library to which a program gives a meaning of its own.
#pragma once

#include <string_view>
#include <vector>

namespace tolvan {
struct LibraryWord;
}

namespace tolvan::guide {

// Those that one line of Roman text sets, declares, reads into, counts with, or gives to a function or a parameter.
std::vector<const LibraryWord*> ownWordsOf(std::string_view roman);

}  // namespace tolvan::guide
