#include "platform/script/Heap.h"

#include "platform/process/LargePages.h"
#include "platform/script/ScriptError.h"

#include <cstdlib>

namespace tolvan::script {

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
