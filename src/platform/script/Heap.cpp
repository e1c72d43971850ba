#include "platform/script/Heap.h"

#include "platform/script/ScriptError.h"

#include <cstdint>
#include <cstdlib>
#ifdef __linux__
#include <sys/mman.h>
#endif

namespace tolvan::script {

namespace {

// A large array is touched from one end to the other: with large pages that takes a fraction of the time. Where there
// are none nothing changes.
void preferLargePages([[maybe_unused]] void* block, [[maybe_unused]] std::size_t bytes) {
#ifdef __linux__
    constexpr std::size_t largePage = std::size_t{2} << 20;
    if (bytes < 4 * largePage) return;
    const std::size_t before = largePage - reinterpret_cast<std::uintptr_t>(block) % largePage;
    madvise(static_cast<char*>(block) + before, (bytes - before) / largePage * largePage, MADV_HUGEPAGE);
#endif
}

}  // namespace

void Heap::abandon() {
    duringWork_ = nullptr;
    abandoned_ = true;
    if (used_ == 0) delete this;
}

void Heap::take(std::size_t bytes) {
    while (bytes > limit_ || used_ > limit_ - bytes)
        if (bytes > limit_ || reserve_ == nullptr || !reserve_->giveUp()) throw ScriptError(errors::outOfMemory);
    used_ += bytes;
}

void Heap::give(std::size_t bytes) noexcept {
    used_ -= bytes;
    if (abandoned_ && used_ == 0) delete this;
}

void* Heap::allocate(std::size_t bytes) {
    take(bytes);
    void* block = std::malloc(bytes);
    if (block == nullptr) {
        used_ -= bytes;
        throw ScriptError(errors::outOfMemory);
    }
    preferLargePages(block, bytes);
    return block;
}

void* Heap::reallocate(void* block, std::size_t oldBytes, std::size_t newBytes) {
    if (newBytes > oldBytes) take(newBytes - oldBytes);
    void* moved = std::realloc(block, newBytes);
    if (moved == nullptr) {
        if (newBytes > oldBytes) used_ -= newBytes - oldBytes;
        throw ScriptError(errors::outOfMemory);
    }
    if (newBytes < oldBytes) used_ -= oldBytes - newBytes;
    return moved;
}

void Heap::release(void* block, std::size_t bytes) noexcept {
    std::free(block);
    give(bytes);
}

}  // namespace tolvan::script
