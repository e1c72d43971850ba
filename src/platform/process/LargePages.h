// Memory that the system maps in large pages.
#pragma once

#include <cstddef>
#include <cstdint>

#ifdef __linux__
#include <sys/mman.h>
#endif

namespace tolvan {

// Asks for them where a block of so many bytes is large: one that is touched from end to end then takes a fraction of
// the time. Where there are none nothing changes.
inline void preferLargePages([[maybe_unused]] void* block, [[maybe_unused]] std::size_t bytes) {
#ifdef __linux__
    constexpr std::size_t largePage = std::size_t{2} << 20;
    if (bytes < 4 * largePage) return;
    const std::size_t before = largePage - reinterpret_cast<std::uintptr_t>(block) % largePage;
    madvise(static_cast<char*>(block) + before, (bytes - before) / largePage * largePage, MADV_HUGEPAGE);
#endif
}

}  // namespace tolvan
