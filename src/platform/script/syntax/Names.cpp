#include "platform/script/syntax/Names.h"

namespace tolvan::script {

// What the lists of names, and of the symbols that they stand for, take for each, roughly.
static constexpr std::size_t bytesOfName = 400;

Names::Names() {
    spellings_.push_back(std::make_unique<const std::string>());
}

NameId Names::intern(std::string_view name) {
    const auto [place, isNew] = ids_.try_emplace(lowerCase(name), static_cast<NameId>(spellings_.size()));
    if (!isNew) return place->second;
    try {
        charge_.add(bytesOfName + 2 * name.size());
    } catch (...) {
        ids_.erase(place);
        throw;
    }
    spellings_.push_back(std::make_unique<const std::string>(name));
    return place->second;
}

}  // namespace tolvan::script
