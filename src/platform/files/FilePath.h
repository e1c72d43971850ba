// Between this project's paths and those of the standard library.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace tolvan {

// On Windows the standard library takes bytes for another encoding than UTF-8. It gives UTF-8 back: generic_string().
inline std::filesystem::path filePath(std::string_view path) {
#ifdef _WIN32
    return std::u8string(path.begin(), path.end());
#else
    return path;
#endif
}

}  // namespace tolvan
