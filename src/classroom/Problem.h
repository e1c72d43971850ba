// Why a class cannot be checked, for the teacher.
#pragma once

#include <cstdint>
#include <string>

namespace tolvan::classroom {

enum class Language : std::uint8_t { Marathi, English };

struct Problem {
    std::string marathi;
    std::string english;

    const std::string& in(Language language) const { return language == Language::Marathi ? marathi : english; }
};

}  // namespace tolvan::classroom
