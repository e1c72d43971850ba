// The memory of one engine's texts, arrays and objects: counts it and keeps it below the host's limit.
#pragma once

#include <cstddef>

namespace tolvan::script {

class Heap {
  public:
    // A heap outlives its engine as long as a value from it lives (a host may have kept one): the engine calls
    // abandon() instead of deleting it.
    static Heap* create() { return new Heap; }
    void abandon();

    // Throws ScriptError 7 where the limit would be passed or the system has no more.
    void* allocate(std::size_t bytes);
    // `moved` has the first min(oldBytes, newBytes) bytes of the old block, which is gone.
    void* reallocate(void* block, std::size_t oldBytes, std::size_t newBytes);
    void release(void* block, std::size_t bytes) noexcept;

    std::size_t used() const { return used_; }
    void setLimit(std::size_t bytes) { limit_ = bytes; }

    static constexpr std::size_t defaultLimit = std::size_t{1} << 30;

  private:
    Heap() = default;
    ~Heap() = default;
    void take(std::size_t bytes);
    void give(std::size_t bytes) noexcept;

    std::size_t used_ = 0;
    std::size_t limit_ = defaultLimit;
    bool abandoned_ = false;
};

}  // namespace tolvan::script
