#include "platform/script/StringCell.h"

#include "platform/script/Heap.h"
#include "platform/script/ScriptError.h"

#include <algorithm>
#include <cstdlib>
#include <new>

namespace tolvan::script {

namespace {

std::size_t blockSize(std::size_t capacity) {
    return sizeof(StringCell) + capacity;
}

void checkLength(const Heap* heap, std::size_t length) {
    if (length > StringCell::longestText) throw ScriptError(errors::outOfMemory);
    if (heap != nullptr && length > heap->longestText()) throw ScriptError(errors::outOfStringSpace);
}

// Room to grow in proportion to the length, so that appending costs a constant time per byte on average.
std::size_t roomFor(const Heap& heap, std::size_t length) {
    return std::min({length + length / 2 + 16, StringCell::longestText, heap.longestText()});
}

void growTo(Heap& heap, Value& target, std::size_t capacity) {
    StringCell* old = target.string();
    StringCell* cell = nullptr;
    if (old->heap == &heap) {
        void* block = heap.reallocate(old, blockSize(old->capacity), blockSize(capacity));
        cell = static_cast<StringCell*>(block);
        cell->capacity = static_cast<std::uint32_t>(capacity);
        target.as.cell = cell;
        return;
    }
    cell = StringCell::create(&heap, capacity);
    cell->length = old->length;
    std::memcpy(cell->bytes(), old->bytes(), old->length);
    target = Value::adopt(cell);
}

}  // namespace

StringCell* StringCell::create(Heap* heap, std::size_t length) {
    checkLength(heap, length);
    void* block = heap != nullptr ? heap->allocate(blockSize(length)) : std::malloc(blockSize(length));
    if (block == nullptr) throw ScriptError(errors::outOfMemory);
    auto* cell = new (block) StringCell;
    cell->length = static_cast<std::uint32_t>(length);
    cell->capacity = static_cast<std::uint32_t>(length);
    cell->heap = heap;
    return cell;
}

void StringCell::destroy(StringCell* cell) noexcept {
    if (cell->heap != nullptr)
        cell->heap->release(cell, blockSize(cell->capacity));
    else
        std::free(cell);
}

void appendText(Heap& heap, Value& target, std::string_view tail) {
    if (tail.empty()) return;
    StringCell* cell = target.string();
    const std::size_t length = cell->length + tail.size();
    checkLength(&heap, length);
    if (cell->references == 1) {
        if (length > cell->capacity) {
            const std::size_t offset = static_cast<std::size_t>(tail.data() - cell->bytes());
            const bool ownTail = tail.data() >= cell->bytes() && offset <= cell->length;
            growTo(heap, target, roomFor(heap, length));
            cell = target.string();
            if (ownTail) tail = {cell->bytes() + offset, tail.size()};
        }
        std::memcpy(cell->bytes() + cell->length, tail.data(), tail.size());
        cell->length = static_cast<std::uint32_t>(length);
        return;
    }
    StringCell* joined = StringCell::create(&heap, length);
    std::memcpy(joined->bytes(), cell->bytes(), cell->length);
    std::memcpy(joined->bytes() + cell->length, tail.data(), tail.size());
    target = Value::adopt(joined);
}

}  // namespace tolvan::script
