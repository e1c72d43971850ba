#include "platform/script/machine/ErrObject.h"

#include "platform/script/Conversions.h"

#include <utility>

namespace tolvan::script {

namespace {

const Value& followed(const Value& argument) {
    return argument.is(Type::Reference) ? *argument.as.ref : argument;
}

// What is left out keeps what Err holds, if anything.
std::string textOf(Context& context, std::span<Value> arguments, std::size_t index, const std::string& held) {
    if (index >= arguments.size() || followed(arguments[index]).isMissing()) return held;
    Value keep;
    return std::string(toTextView(context, followed(arguments[index]), keep));
}

constexpr int largestNumber = 65535;  // of an error that is not an object's own (those are negative)
constexpr std::size_t mostRaiseArguments = 5;

}  // namespace

ErrObject::ErrObject(Names& names)
    : number_(names.intern("Number")),
      description_(names.intern("Description")),
      source_(names.intern("Source")),
      helpFile_(names.intern("HelpFile")),
      helpContext_(names.intern("HelpContext")),
      raise_(names.intern("Raise")),
      clear_(names.intern("Clear")) {}

void ErrObject::set(const ScriptError& error) {
    currentNumber_ = error.number;
    currentDescription_ = error.description.empty() ? std::string(errorText(error.number)) : error.description;
    currentSource_ = error.source.empty() ? "VBScript runtime error" : error.source;
    currentHelp_ = std::exchange(raisedHelp_, {});
}

void ErrObject::clear() {
    currentNumber_ = 0;
    currentDescription_.clear();
    currentSource_.clear();
    currentHelp_ = {};
}

void ErrObject::raise(Context& context, std::span<Value> arguments) {
    if (arguments.empty() || arguments.size() > mostRaiseArguments) throw ScriptError(errors::argumentCount);
    const std::int32_t number = toLong(context, followed(arguments[0]));
    if (number == 0 || number > largestNumber) throw ScriptError(errors::invalidCall);
    Help help{textOf(context, arguments, 3, currentHelp_.file), currentHelp_.context};
    if (arguments.size() == mostRaiseArguments) help.context = toLong(context, followed(arguments[4]));
    const ScriptError error(number, textOf(context, arguments, 2, currentDescription_),
                            textOf(context, arguments, 1, currentSource_));
    raisedHelp_ = std::move(help);
    throw error;
}

Value ErrObject::call(Context& context, NameId name, std::span<Value> arguments) {
    if (name == raise_) raise(context, arguments);
    if (!arguments.empty()) throw ScriptError(errors::argumentCount);
    if (name == number_ || name == defaultMemberName) return Value::longInteger(currentNumber_);
    if (name == description_) return context.text(currentDescription_);
    if (name == source_) return context.text(currentSource_);
    if (name == helpFile_) return context.text(currentHelp_.file);
    if (name == helpContext_) return Value::longInteger(currentHelp_.context);
    if (name != clear_) throw ScriptError(errors::noSuchMember);
    clear();
    return {};
}

void ErrObject::put(Context& context, NameId name, std::span<Value> arguments, const Value& value, bool) {
    if (!arguments.empty()) throw ScriptError(errors::argumentCount);
    Value keep;
    if (name == number_ || name == defaultMemberName)
        currentNumber_ = toLong(context, value);
    else if (name == description_)
        currentDescription_ = toTextView(context, value, keep);
    else if (name == source_)
        currentSource_ = toTextView(context, value, keep);
    else if (name == helpFile_)
        currentHelp_.file = toTextView(context, value, keep);
    else if (name == helpContext_)
        currentHelp_.context = toLong(context, value);
    else
        throw ScriptError(errors::noSuchMember);
}

}  // namespace tolvan::script
