#include "platform/script/syntax/Names.h"

namespace tolvan::script {

Names::Names() {
    spellings_.push_back(std::make_unique<const std::string>());
}

NameId Names::intern(std::string_view name) {
    const auto [place, isNew] = ids_.try_emplace(lowerCase(name), static_cast<NameId>(spellings_.size()));
    if (isNew) spellings_.push_back(std::make_unique<const std::string>(name));
    return place->second;
}

}  // namespace tolvan::script
