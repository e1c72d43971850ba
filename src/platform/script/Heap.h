// The memory of one engine's texts, arrays, objects and code: counts it and keeps it below the host's limit.
#pragma once

#include <cstddef>
#include <functional>
#include <limits>
#include <utility>

namespace tolvan::script {

// Who holds memory that can be done without.
class HeapReserve {
  public:
    HeapReserve() = default;
    HeapReserve(const HeapReserve&) = delete;
    HeapReserve& operator=(const HeapReserve&) = delete;
    virtual ~HeapReserve() = default;

    // Releases some of it; false if there is none.
    virtual bool giveUp() noexcept = 0;
};

class Heap {
  public:
    // A heap outlives its engine as long as a value from it lives (a host may have kept one): the engine calls
    // abandon() instead of deleting it.
    static Heap* create() { return new Heap; }
    void abandon();

    // Throws ScriptError 7 where the limit would be passed or the system has no more.
    void* allocate(std::size_t bytes);
    // The first min(oldBytes, newBytes) bytes move to the new block; the old one is released.
    void* reallocate(void* block, std::size_t oldBytes, std::size_t newBytes);
    void release(void* block, std::size_t bytes) noexcept;

    std::size_t used() const { return used_; }
    void setLimit(std::size_t bytes) { limit_ = bytes; }
    // Asked before the limit would be passed. Null: nobody.
    void setReserve(HeapReserve* reserve) { reserve_ = reserve; }

    // Of one text, in bytes.
    const std::size_t& longestText() const { return longestText_; }
    void setLongestText(std::size_t bytes) { longestText_ = bytes; }

    // Called now and then by what works long on memory; may throw a ScriptError, which ends that work. Empty: nobody.
    void setDuringWork(std::function<void()> look) { duringWork_ = std::move(look); }
    void lookDuringWork() const {
        if (duringWork_) duringWork_();
    }

    static constexpr std::size_t defaultLimit = std::size_t{1} << 30;

    // For memory from elsewhere that counts all the same (see HeapCharge). Throws like allocate().
    void take(std::size_t bytes);
    void give(std::size_t bytes) noexcept;

  private:
    Heap() = default;
    ~Heap() = default;

    std::size_t used_ = 0;
    std::size_t limit_ = defaultLimit;
    std::size_t longestText_ = std::numeric_limits<std::size_t>::max();
    HeapReserve* reserve_ = nullptr;
    std::function<void()> duringWork_;
    bool abandoned_ = false;
};

// Bytes that its owner holds elsewhere, counted by the heap as long as this lives. Without a heap nothing is counted.
class HeapCharge {
  public:
    explicit HeapCharge(Heap* heap = nullptr) : heap_(heap) {}
    HeapCharge(HeapCharge&& other) noexcept
        : heap_(std::exchange(other.heap_, nullptr)), bytes_(std::exchange(other.bytes_, 0)) {}
    HeapCharge& operator=(HeapCharge&& other) noexcept {
        std::swap(heap_, other.heap_);
        std::swap(bytes_, other.bytes_);
        return *this;
    }
    HeapCharge(const HeapCharge&) = delete;
    HeapCharge& operator=(const HeapCharge&) = delete;
    ~HeapCharge() {
        if (heap_ != nullptr && bytes_ != 0) heap_->give(bytes_);
    }

    Heap* heap() const { return heap_; }
    // Throws ScriptError 7 where the limit would be passed.
    void add(std::size_t bytes) {
        if (heap_ == nullptr) return;
        heap_->take(bytes);
        bytes_ += bytes;
    }

  private:
    Heap* heap_;
    std::size_t bytes_ = 0;
};

}  // namespace tolvan::script
