// What findings are about, for teachers who read no Marathi.
#pragma once

#include <string_view>

namespace tolvan::guide {

// A sentence on the findings of a kind; the place tells the rest.
std::string_view kindInEnglish(std::string_view kind);

}  // namespace tolvan::guide
