// An array of values, with any number of dimensions. Lower bounds are 0. Values share arrays until one of them changes:
// an array that is shared is copied before it is changed (`unshare`).
#pragma once

#include "platform/script/Value.h"

#include <cstddef>
#include <cstdint>
#include <span>

namespace tolvan::script {

struct ArrayCell : Cell {
    // How many Pins there are on it (For Each, elements passed by reference): while there are any it cannot be resized.
    std::uint32_t pins = 0;
    // Elements if the rank is 1, else 0: one comparison tells whether an index fits.
    std::uint32_t count1 = 0;
    std::uint16_t rank = 0;            // 0: declared without bounds and not dimensioned yet ("Dim a()")
    bool resizable = true;             // false: "Dim a(9)"
    std::uint32_t* extents = nullptr;  // elements in each dimension, `rank` of them
    Value* items = nullptr;            // first index fastest
    std::size_t size = 0;              // elements in all
    Heap* heap = nullptr;
    std::size_t capacity = 0;  // of `items`: more than `size` only while the array is made

    std::span<Value> elements() const { return {items, size}; }

    static constexpr std::size_t mostDimensions = 60;

    // Elements are Empty. An extent of 0 gives an array without elements. Throws ScriptError 7.
    static ArrayCell* create(Heap& heap, std::span<const std::uint32_t> extents, bool resizable);
    static ArrayCell* createList(Heap& heap, std::size_t count);  // rank 1
    static ArrayCell* copy(Heap& heap, const ArrayCell& other);
    static void destroy(ArrayCell* cell) noexcept;

    // Adds elements in the last dimension, which must not be empty; throws 7, and changes nothing then. Elements that
    // grow one by one take a time that grows with their number, not with its square.
    void grow(std::uint32_t lastExtent);
};

// Makes `array` (an Array value) the only holder of its cell, copying the elements if it is not.
ArrayCell* unshare(Heap& heap, Value& array);

inline ArrayCell* Value::array() const {
    return static_cast<ArrayCell*>(as.cell);
}
inline Value Value::adopt(ArrayCell* cell) {
    Value value(Type::Array);
    value.as.cell = cell;
    return value;
}

}  // namespace tolvan::script
