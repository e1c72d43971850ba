// The clock of this place.
#pragma once

#include <ctime>

namespace tolvan {

inline std::tm localTimeOf(std::time_t time) {
    std::tm local{};
#ifdef _WIN32
    localtime_s(&local, &time);
#else
    localtime_r(&time, &local);
#endif
    return local;
}

}  // namespace tolvan
