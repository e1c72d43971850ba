// The documented text of each error number, as Err.Description gives it.
#pragma once

#include <string_view>

namespace tolvan::script {

// "Unknown runtime error" for a number that has none.
std::string_view errorText(int number);

}  // namespace tolvan::script
