// Obfuscates the program inside a stand-alone executable, so that its text is not read or changed by accident.
// It is no protection against anyone who wants to read it.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace tolvan {

// Entry i is used for the characters at the 0-based positions i - 1, i + 11, ...; the last character of each twelve
// uses entry 0.
using ScramblingKey = std::array<std::uint8_t, 12>;

// The writer of executables and the runtime in them share it. A change makes existing executables unreadable to a new
// runtime, but every executable carries the runtime that it was written with.
inline constexpr ScramblingKey scramblingKey = {7, 19, 3, 28, 11, 23, 5, 31, 13, 2, 17, 29};

// Each gives as many bytes as it takes, and undoes the other.
std::string scramble(std::string_view plain, const ScramblingKey& key = scramblingKey);
std::string unscramble(std::string_view scrambled, const ScramblingKey& key = scramblingKey);

}  // namespace tolvan
