// The bytes of a text, after the cell's own fields in one block. Its length never exceeds its capacity; the spare
// room lets a text that nobody else holds grow where it is.
#pragma once

#include "platform/script/Value.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tolvan::script {

struct StringCell : Cell {
    std::uint32_t length = 0;
    std::uint32_t capacity = 0;
    Heap* heap = nullptr;  // null: memory that no limit counts

    char* bytes() { return reinterpret_cast<char*>(this + 1); }
    const char* bytes() const { return reinterpret_cast<const char*>(this + 1); }
    std::string_view view() const { return {bytes(), length}; }

    // Longest text, in bytes; asking for more raises 7. The heap may have a lower limit, above which it is 14.
    static constexpr std::size_t longestText = 0x7fffffff;

    // A text of `length` bytes that are yet to be written. Throws ScriptError 7 or 14.
    static StringCell* create(Heap* heap, std::size_t length);
    static void destroy(StringCell* cell) noexcept;
};

// Appends to a String value: in place if no other value holds its text, which makes building a text byte by byte
// linear. `tail` may lie in the same text. Throws ScriptError 7 or 14.
void appendText(Heap& heap, Value& target, std::string_view tail);

inline std::string_view Value::view() const {
    return static_cast<const StringCell*>(as.cell)->view();
}
inline StringCell* Value::string() const {
    return static_cast<StringCell*>(as.cell);
}
inline Value Value::adopt(StringCell* cell) {
    Value value(Type::String);
    value.as.cell = cell;
    return value;
}

}  // namespace tolvan::script
