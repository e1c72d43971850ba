// What a host gives its scripts: an object whose members they call by name. Members are looked up once, when a script
// is compiled, and called by number from then on.
#pragma once

#include "platform/script/ScriptError.h"
#include "platform/script/Value.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace tolvan::script {

class Context;

// The arguments of one call, counted from 0. An argument may have been left out ("f 1,,3"), and it may be a variable
// of the script, which the host can set. Valid during the call only.
//
// The conversions are those of the script's CStr, CDbl, CLng and CBool, with the engine's text form of numbers. They
// throw ScriptError: 13 for what cannot be converted, 94 for Null, 6 for a number out of range, 449 for an argument
// that is missing.
class Arguments {
  public:
    Arguments(Context& context, std::span<Value> values) : context_(context), values_(values) {}

    std::size_t count() const { return values_.size(); }
    // Left out, or beyond the last.
    bool isMissing(std::size_t index) const;
    const Value& operator[](std::size_t index) const;

    std::string text(std::size_t index) const;
    double number(std::size_t index) const;
    std::int32_t integer(std::size_t index) const;
    bool boolean(std::size_t index) const;

    // Sets the script's variable that was given as this argument. An argument that is no variable is left alone.
    void assign(std::size_t index, Value value);

  private:
    const Value& present(std::size_t index) const;

    Context& context_;
    std::span<Value> values_;
};

// Owned by the host; must outlive its use by an engine: until Executor::reset.
class HostObject {
  public:
    HostObject() = default;
    HostObject(const HostObject&) = delete;
    HostObject& operator=(const HostObject&) = delete;
    virtual ~HostObject() = default;

    // TypeName of the object.
    virtual std::string_view typeName() const = 0;

    static constexpr int noMember = -1;
    // The number (0 or above) of the member with this name, letter case aside, or noMember. One name has one number
    // for the life of the object.
    virtual int findMember(std::string_view name) const = 0;

    // Calls a method or reads a property. A member without a result returns Value(). Throws ScriptError to raise an
    // error in the script: 450 for a wrong number of arguments.
    virtual Value call(int member, Arguments& arguments) = 0;

    // Assigns a property. This implementation refuses every assignment (438).
    virtual void put(int member, Arguments& arguments, const Value& value);

    // Makes a member one that scripts poll: it has no arguments, nearly always answers True, and may be asked before
    // every statement, as in "If Not host.goOn Then Err.Raise 1001". Returns the budget of polls (a number that the
    // host owns, at one place for the life of the object), or null for an ordinary member.
    //
    // As long as the budget is above 0 a poll counts it down and takes the answer to be True, without a call. At 0 or
    // below the member is called; the call sets a new budget. A host that wants to be called at the very next poll sets
    // the budget to 0: after anything that makes the answer False, or that took long. Polls in a row without any call
    // between them may count as one.
    virtual int* pollBudget(int member);
};

}  // namespace tolvan::script
