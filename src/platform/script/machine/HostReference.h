// An object of the host as a script sees it.
#pragma once

#include "platform/script/HostObject.h"
#include "platform/script/Object.h"
#include "platform/script/syntax/Names.h"

#include <string_view>
#include <unordered_map>

namespace tolvan::script {

// A host's object in a variable of a script.
class HostReference : public Object {
  public:
    HostReference(HostObject& object, Names& names) : object_(object), names_(names) {}

    std::string_view typeName() const override { return object_.typeName(); }
    Value call(Context& context, NameId name, std::span<Value> arguments) override;
    void put(Context& context, NameId name, std::span<Value> arguments, const Value& value, bool isSet) override;

  private:
    int find(NameId name);

    HostObject& object_;
    Names& names_;
    std::unordered_map<NameId, int> members_;
};

}  // namespace tolvan::script
