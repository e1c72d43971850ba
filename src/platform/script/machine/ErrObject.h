// Err: the error that the script caught last, and the way to raise one.
#pragma once

#include "platform/script/Object.h"
#include "platform/script/ScriptError.h"
#include "platform/script/syntax/Names.h"

#include <string>
#include <string_view>

namespace tolvan::script {

class ErrObject : public Object {
  public:
    explicit ErrObject(Names& names);

    void set(const ScriptError& error);
    void clear();

    std::string_view typeName() const override { return "Object"; }
    Value call(Context& context, NameId name, std::span<Value> arguments) override;
    void put(Context& context, NameId name, std::span<Value> arguments, const Value& value, bool isSet) override;
    bool hasDefault() const override { return true; }

  private:
    struct Help {
        std::string file;
        int context = 0;
    };
    [[noreturn]] void raise(Context& context, std::span<Value> arguments);

    const NameId number_, description_, source_, helpFile_, helpContext_, raise_, clear_;
    int currentNumber_ = 0;
    std::string currentDescription_;
    std::string currentSource_;
    Help currentHelp_;
    Help raisedHelp_;  // of the error that is on its way
};

}  // namespace tolvan::script
