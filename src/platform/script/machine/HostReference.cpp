#include "platform/script/machine/HostReference.h"

#include "platform/script/ScriptError.h"

namespace tolvan::script {

int HostReference::find(NameId name) {
    const auto [place, isNew] = members_.try_emplace(name, HostObject::noMember);
    if (isNew && name != defaultMemberName) place->second = object_.findMember(names_.spelling(name));
    if (place->second == HostObject::noMember) throw ScriptError(errors::noSuchMember);
    return place->second;
}

Value HostReference::call(Context& context, NameId name, std::span<Value> values) {
    Arguments arguments(context, values);
    return object_.call(find(name), arguments);
}

void HostReference::put(Context& context, NameId name, std::span<Value> values, const Value& value, bool) {
    Arguments arguments(context, values);
    object_.put(find(name), arguments, value);
}

}  // namespace tolvan::script
