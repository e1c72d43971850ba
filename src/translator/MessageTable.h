// What a user is told about an error of a running program: the script engine's error number and a font-encoded message
// as rich text ("\f1" switches to the Devanagari font, "\f0" to the Latin one), without the document around it.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace tolvan {

struct Message {
    std::int32_t number;
    std::string_view text;
};

// All messages. 32766 and 32767 are no errors but the words for true and false.
std::span<const Message> messageTable();

// Nothing for a number without a message: the caller shows the number itself.
std::optional<std::string_view> findMessage(std::int32_t number);

// The same as a fragment that a rich-text document can hold: a brace is a letter in these messages, or a mark that is
// spoken of, and never a group.
std::optional<std::string> messageFragment(std::int32_t number);

}  // namespace tolvan
