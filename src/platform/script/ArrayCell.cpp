#include "platform/script/ArrayCell.h"

#include "platform/script/Heap.h"
#include "platform/script/ScriptError.h"

#include <algorithm>
#include <new>

namespace tolvan::script {

namespace {

// Some milliseconds' work where each page of the memory is new.
constexpr std::size_t elementsBetweenLooks = std::size_t{1} << 18;

// Error 7 for more elements than any memory could hold.
std::size_t product(std::size_t size, std::uint32_t extent) {
    if (extent != 0 && size > (std::size_t{1} << 40) / extent) throw ScriptError(errors::outOfMemory);
    return size * extent;
}

// Elements in all.
std::size_t product(std::span<const std::uint32_t> extents) {
    std::size_t size = extents.empty() ? 0 : 1;
    for (const std::uint32_t extent : extents) size = product(size, extent);
    return size;
}

std::size_t cellSize(std::size_t rank) {
    const std::size_t bytes = sizeof(ArrayCell) + rank * sizeof(std::uint32_t);
    return (bytes + alignof(Value) - 1) / alignof(Value) * alignof(Value);
}

}  // namespace

// The extents lie after the cell in its block; the elements have a block of their own.
ArrayCell* ArrayCell::create(Heap& heap, std::span<const std::uint32_t> extents, bool resizable) {
    const std::size_t size = product(extents);
    void* block = heap.allocate(cellSize(extents.size()));
    auto* cell = new (block) ArrayCell;
    cell->heap = &heap;
    cell->rank = static_cast<std::uint16_t>(extents.size());
    cell->resizable = resizable;
    cell->extents = reinterpret_cast<std::uint32_t*>(cell + 1);
    for (std::size_t i = 0; i < extents.size(); ++i) cell->extents[i] = extents[i];
    if (size == 0) return cell;
    try {
        cell->items = static_cast<Value*>(heap.allocate(size * sizeof(Value)));
        cell->capacity = size;
        while (cell->size < size) {
            const std::size_t end = std::min(size, cell->size + elementsBetweenLooks);
            for (; cell->size < end; ++cell->size) new (cell->items + cell->size) Value;
            if (size > elementsBetweenLooks) heap.lookDuringWork();
        }
    } catch (...) {
        destroy(cell);
        throw;
    }
    if (extents.size() == 1) cell->count1 = extents[0];
    return cell;
}

ArrayCell* ArrayCell::createList(Heap& heap, std::size_t count) {
    if (count > 0xffffffffu) throw ScriptError(errors::outOfMemory);
    const auto extent = static_cast<std::uint32_t>(count);
    return create(heap, {&extent, 1}, true);
}

ArrayCell* ArrayCell::copy(Heap& heap, const ArrayCell& other) {
    ArrayCell* cell = create(heap, {other.extents, other.rank}, other.resizable);
    try {
        for (std::size_t i = 0; i < other.size; ++i) {
            cell->items[i] = other.items[i];
            if ((i + 1) % elementsBetweenLooks == 0) heap.lookDuringWork();
        }
    } catch (...) {
        destroy(cell);
        throw;
    }
    return cell;
}

void ArrayCell::grow(std::uint32_t lastExtent) {
    const std::size_t grown = product(size / extents[rank - 1], lastExtent);
    // realloc may move Values: they hold no pointers to themselves.
    items = static_cast<Value*>(heap->reallocate(items, size * sizeof(Value), grown * sizeof(Value)));
    capacity = grown;
    for (; size < grown; ++size) new (items + size) Value;
    extents[rank - 1] = lastExtent;
    if (rank == 1) count1 = lastExtent;
}

// Arrays may hold arrays to any depth: they are released one after the other, without recursion.
void ArrayCell::destroy(ArrayCell* cell) noexcept {
    static thread_local ArrayCell* waiting = nullptr;
    static thread_local bool busy = false;
    // The waiting cells are linked through their extents, which nobody needs any more; `rank` keeps the block's size.
    struct Link {
        static void push(ArrayCell* link) {
            link->extents = reinterpret_cast<std::uint32_t*>(waiting);
            waiting = link;
        }
    };
    Link::push(cell);
    if (busy) return;
    busy = true;
    while (waiting != nullptr) {
        ArrayCell* next = waiting;
        waiting = reinterpret_cast<ArrayCell*>(next->extents);
        for (std::size_t i = 0; i < next->size; ++i) next->items[i].~Value();
        if (next->items != nullptr) next->heap->release(next->items, next->capacity * sizeof(Value));
        next->heap->release(next, cellSize(next->rank));
    }
    busy = false;
}

ArrayCell* unshare(Heap& heap, Value& array) {
    ArrayCell* cell = array.array();
    if (cell->references == 1) return cell;
    array = Value::adopt(ArrayCell::copy(heap, *cell));
    return array.array();
}

}  // namespace tolvan::script
