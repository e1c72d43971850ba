// How a module looks that a program is translated to, for those who read it again.
#pragma once

#include <string_view>

namespace tolvan::module_form {

inline constexpr std::string_view mainBegin = "Sub Main()";
inline constexpr std::string_view mainEnd = "End Sub";
// Stands before every statement: lets the console's events run, and ends a program that was stopped.
inline constexpr std::string_view pollLine = "if not parentform.checkforevents then err.raise 1001";

}  // namespace tolvan::module_form
