// What an Object value refers to: an instance of a script's class, the Err object, a host's object, a procedure
// reference. Reference-counted: deleted when the last value releases it.
#pragma once

#include "platform/script/Value.h"

#include <cstdint>
#include <span>
#include <string_view>

namespace tolvan::script {

class ClassInstance;
class Context;

// A member name as the compiler numbers it (see Names); 0 is the default member.
using NameId = std::uint32_t;
inline constexpr NameId defaultMemberName = 0;

class Object : public Cell {
  public:
    Object() = default;
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;
    virtual ~Object() = default;

    virtual std::string_view typeName() const = 0;
    // Calls a method, or reads a property. This implementation has none (438).
    virtual Value call(Context& context, NameId name, std::span<Value> arguments);
    // Assigns a property; isSet for "Set o.p = object". This implementation has none (438).
    virtual void put(Context& context, NameId name, std::span<Value> arguments, const Value& value, bool isSet);
    // True if the object has a default member, which stands for it where a plain value is asked for.
    virtual bool hasDefault() const { return false; }
    // The object as an instance of a script's class, or null.
    virtual ClassInstance* asInstance() { return nullptr; }
    // Called when the last value has released the object; deletes it, or keeps it until its Class_Terminate has run.
    virtual void dispose() noexcept { delete this; }
};

inline Object* Value::object() const {
    return static_cast<Object*>(as.cell);
}
inline Value Value::adopt(Object* object) {
    Value value(Type::Object);
    value.as.cell = object;
    return value;
}

}  // namespace tolvan::script
