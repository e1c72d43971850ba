// Memory of a syntax tree: taken piece by piece, given back all at once. Holds only types without a destructor.
#pragma once

#include "platform/script/Heap.h"

#include <cstddef>
#include <memory>
#include <new>
#include <span>
#include <type_traits>
#include <utility>
#include <vector>

namespace tolvan::script {

class Arena {
  public:
    explicit Arena(Heap* heap) : charge_(heap) {}

    template <class T, class... Arguments>
    T* make(Arguments&&... arguments) {
        static_assert(std::is_trivially_destructible_v<T>);
        return new (take(sizeof(T))) T{std::forward<Arguments>(arguments)...};
    }

    template <class T>
    std::span<T> copy(const std::vector<T>& items) {
        static_assert(std::is_trivially_copyable_v<T>);
        if (items.empty()) return {};
        T* block = static_cast<T*>(take(items.size() * sizeof(T)));  // NOLINT(bugprone-sizeof-expression): a pointer
        for (std::size_t i = 0; i < items.size(); ++i) new (static_cast<void*>(block + i)) T(items[i]);
        return {block, items.size()};
    }

  private:
    void* take(std::size_t bytes) {
        bytes = (bytes + alignment - 1) / alignment * alignment;
        if (bytes > left_) {
            const std::size_t size = bytes > blockSize ? bytes : blockSize;
            charge_.add(size);
            blocks_.push_back(std::make_unique_for_overwrite<std::byte[]>(size));
            next_ = blocks_.back().get();
            left_ = size;
        }
        std::byte* piece = next_;
        next_ += bytes;
        left_ -= bytes;
        return piece;
    }

    static constexpr std::size_t alignment = alignof(std::max_align_t);
    static constexpr std::size_t blockSize = std::size_t{64} * 1024;
    HeapCharge charge_;
    std::vector<std::unique_ptr<std::byte[]>> blocks_;
    std::byte* next_ = nullptr;
    std::size_t left_ = 0;
};

}  // namespace tolvan::script
