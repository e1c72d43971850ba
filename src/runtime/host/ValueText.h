// Values of a program as it would print them, in internal text form, for somebody who looks at it.
#pragma once

#include "platform/script/ArrayCell.h"
#include "platform/script/Context.h"
#include "platform/script/Value.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace tolvan {

class ValueText {
  public:
    // Longer texts, and further elements, are cut and end in dots. In bytes.
    static constexpr std::size_t longestText = 1000;
    static constexpr std::size_t mostElements = 20;

    ValueText();

    // Nothing for a variable without a value and for an object. An array is "(1; 2; 3)", with brackets within these for
    // each further dimension.
    std::string of(const script::Value& value);

    // The indexes of an element, by its number in the order of ArrayCell.
    static std::vector<std::uint32_t> indexesOf(const script::ArrayCell& array, std::size_t number);

  private:
    std::string simple(const script::Value& value);
    void appendElements(const script::ArrayCell& array, std::size_t dimension, std::size_t number,
                        std::size_t& elementsLeft, std::string& text);

    script::Context context_;
};

}  // namespace tolvan
