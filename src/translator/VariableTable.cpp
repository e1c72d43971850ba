#include "translator/VariableTable.h"

#include "translator/Blanks.h"

#include <algorithm>

namespace tolvan {

std::string NameCounter::next() {
    const std::size_t k = letters_.find_last_not_of('z');
    if (k == std::string::npos) return {};
    ++letters_[k];
    std::string name = letters_;
    std::fill(letters_.begin() + static_cast<std::ptrdiff_t>(k) + 1, letters_.end(), 'a');
    return name;
}

const std::string& VariableTable::MapIdentifier(std::string_view name) {
    const std::string_view trimmed = trimBlanks(name);
    const auto found = names_.find(trimmed);
    if (found != names_.end()) return found->second;
    std::string variable = GetNextVariable();
    return names_.emplace(trimmed, std::move(variable)).first->second;
}

std::string VariableTable::GetNextVariable() {
    if (names_.empty()) counter_.reset();
    return counter_.next();
}

}  // namespace tolvan
