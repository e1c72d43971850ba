// How a question can be answered.
#pragma once

#include <cstdint>

namespace tolvan {

enum class Answer : std::int8_t { Cancel = -1, No = 0, Yes = 1 };

}  // namespace tolvan
