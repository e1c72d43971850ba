// A value of the script language: 16 bytes, a tag and a payload. Numbers lie in the value itself; texts, arrays and
// objects are counted references to cells on the heap. Copying is cheap and never copies a text or an array: a cell
// that several values share is copied when one of them changes it.
//
// Text is 8-bit bytes without a meaning of their own.
#pragma once

#include <cstdint>
#include <cstring>
#include <string_view>

namespace tolvan::script {

// One bit a type, so that "both operands are Integer or Long" is one test on the tags or-ed together.
enum class Type : std::uint32_t {
    Empty = 1u << 0,
    Null = 1u << 1,
    Boolean = 1u << 2,   // payload i: 0 or -1
    Byte = 1u << 3,      // payload i: 0 to 255
    Integer = 1u << 4,   // payload i: -32768 to 32767
    Long = 1u << 5,      // payload i
    Single = 1u << 6,    // payload f
    Double = 1u << 7,    // payload d
    Currency = 1u << 8,  // payload c: ten-thousandths
    Date = 1u << 9,      // payload d: days since 30 December 1899; the fraction is the time of day
    Error = 1u << 10,    // payload i: the error's number
    String = 1u << 11,   // payload cell: a StringCell
    Array = 1u << 12,    // payload cell: an ArrayCell
    Object = 1u << 13,   // payload cell: an Object, or null for Nothing

    // Never seen by a script or a host: what the machine keeps in its registers.
    Reference = 1u << 14,  // payload ref: the variable that an argument stands for
    Pin = 1u << 15,        // payload cell: an ArrayCell that must not be resized while this value lives
};

constexpr std::uint32_t bits(Type type) {
    return static_cast<std::uint32_t>(type);
}
template <class... Types>
constexpr std::uint32_t bits(Type first, Types... rest) {
    return bits(first) | bits(rest...);
}

// What every cell on the heap begins with.
struct Cell {
    std::uint32_t references = 1;
};
struct StringCell;
struct ArrayCell;
class Object;
class Heap;

class Value {
  public:
    Value() noexcept : tag(bits(Type::Empty)) { as.d = 0; }
    Value(const Value& other) noexcept : tag(other.tag), as(other.as) { retain(); }
    Value(Value&& other) noexcept : tag(other.tag), as(other.as) { other.tag = bits(Type::Empty); }
    Value& operator=(const Value& other) noexcept {
        Value copy(other);
        swap(copy);
        return *this;
    }
    Value& operator=(Value&& other) noexcept {
        Value moved(static_cast<Value&&>(other));
        swap(moved);
        return *this;
    }
    ~Value() { release(); }

    static Value null() { return Value(Type::Null); }
    static Value boolean(bool on) { return whole(Type::Boolean, on ? -1 : 0); }
    static Value byte(std::uint8_t number) { return whole(Type::Byte, number); }
    static Value integer(std::int16_t number) { return whole(Type::Integer, number); }
    static Value longInteger(std::int32_t number) { return whole(Type::Long, number); }
    static Value single(float number);
    static Value number(double number) { return real(Type::Double, number); }
    static Value currency(std::int64_t tenThousandths);
    static Value date(double days) { return real(Type::Date, days); }
    static Value error(std::int32_t number) { return whole(Type::Error, number); }
    // An argument that the caller left out.
    static Value missing() { return error(missingArgument); }
    // A text that no engine's memory limit counts: for hosts. Inside the engine texts are made by Context::text.
    static Value text(std::string_view bytes);
    static Value nothing() { return Value(Type::Object); }

    // Take over one reference that the caller holds.
    static Value adopt(StringCell* cell);
    static Value adopt(ArrayCell* cell);
    static Value adopt(Object* object);  // null: Nothing

    Type type() const { return static_cast<Type>(tag); }
    bool is(Type type) const { return tag == bits(type); }
    bool isOneOf(std::uint32_t types) const { return (tag & types) != 0; }
    bool isMissing() const { return is(Type::Error) && as.i == missingArgument; }
    // Each asks for a value of the type in its name; Value does not convert.
    bool isTrue() const { return as.i != 0; }
    std::string_view view() const;  // bytes of a String; they live as long as the value is unchanged
    StringCell* string() const;
    ArrayCell* array() const;
    Object* object() const;  // null for Nothing

    void swap(Value& other) noexcept {
        const std::uint32_t otherTag = other.tag;
        const Payload otherPayload = other.as;
        other.tag = tag;
        other.as = as;
        tag = otherTag;
        as = otherPayload;
    }

    static constexpr std::uint32_t heapTypes = bits(Type::String, Type::Array, Type::Object, Type::Pin);
    static constexpr std::int32_t missingArgument = static_cast<std::int32_t>(0x80020004u);

    union Payload {
        std::int32_t i;
        float f;
        double d;
        std::int64_t c;
        Cell* cell;
        Value* ref;
    };
    // Public for the engine, which works on them in place; hosts have no need of them.
    std::uint32_t tag;
    Payload as;

  private:
    explicit Value(Type type) noexcept : tag(bits(type)) { as.c = 0; }
    static Value whole(Type type, std::int32_t number) {
        Value value(type);
        value.as.i = number;
        return value;
    }
    static Value real(Type type, double number) {
        Value value(type);
        value.as.d = number;
        return value;
    }
    void retain() const noexcept {
        if ((tag & heapTypes) == 0 || as.cell == nullptr) return;
        if (tag != bits(Type::Pin))
            ++as.cell->references;
        else
            retainPin();
    }
    void release() noexcept {
        if ((tag & heapTypes) == 0 || as.cell == nullptr) return;
        if (tag == bits(Type::Pin) || --as.cell->references == 0) releaseLast();
    }
    void retainPin() const noexcept;
    // Of a Pin, or of a cell that nobody refers to any more.
    void releaseLast() noexcept;
};

static_assert(sizeof(Value) == 16);

}  // namespace tolvan::script
