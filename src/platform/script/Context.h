// What the built-in functions, conversions and operators may use of the engine that they work for.
#pragma once

#include "platform/script/Heap.h"
#include "platform/script/StringCell.h"
#include "platform/script/TextForm.h"
#include "platform/script/Value.h"

#include <cstdint>
#include <string_view>

namespace tolvan::script {

class Context {
  public:
    Context();
    ~Context();
    Context(const Context&) = delete;
    Context& operator=(const Context&) = delete;

    Heap& heap() { return *heap_; }
    const TextForm& textForm() const { return *textForm_; }
    void setTextForm(const TextForm* form);

    // A text of the script's. Texts of no or one byte are shared and cost no memory. Throws ScriptError 7.
    Value text(std::string_view bytes);
    Value character(std::uint8_t code);

    // The value of an object's default member (a plain value stays as it is): what conversions and operators use of
    // an operand that is an object. Throws ScriptError 91 for Nothing, 438 without a default member.
    Value plain(const Value& value);

    static constexpr int longestDefaultChain = 16;

    // The state of Rnd: 24 bits.
    static constexpr std::uint32_t firstRandomSeed = 0x50000;
    std::uint32_t randomSeed = firstRandomSeed;

  private:
    Heap* heap_;
    const TextForm* textForm_;
    Value characters_[257];  // [code], and the empty text
};

}  // namespace tolvan::script
