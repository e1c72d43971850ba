#include "platform/encoding/Utf8.h"

namespace tolvan {
namespace {

constexpr bool isCharacter(char32_t number) {
    return number < 0xD800 || (number > 0xDFFF && number <= 0x10FFFF);
}

// The length of a character that begins with this byte; 0 where none does.
constexpr std::size_t lengthOf(unsigned char lead) {
    return lead < 0x80 ? 1 : lead < 0xC2 ? 0 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : lead < 0xF5 ? 4 : 0;
}

// The least number that needs so many bytes.
constexpr char32_t leastNumber[] = {0, 0, 0x80, 0x800, 0x10000};

}  // namespace

char32_t takeCharacter(std::string_view& utf8) {
    const auto lead = static_cast<unsigned char>(utf8.front());
    const std::size_t length = lengthOf(lead);
    char32_t number = length == 1 ? lead : lead & (0x7FU >> length);
    bool valid = length > 0 && length <= utf8.size();
    for (std::size_t i = 1; valid && i < length; ++i) {
        const auto byte = static_cast<unsigned char>(utf8[i]);
        valid = (byte & 0xC0U) == 0x80;
        number = number << 6U | (byte & 0x3FU);
    }
    valid = valid && number >= leastNumber[length] && isCharacter(number);
    utf8.remove_prefix(valid ? length : 1);
    return valid ? number : replacementCharacter;
}

void appendUtf8(char32_t character, std::string& utf8) {
    if (!isCharacter(character)) character = replacementCharacter;
    const auto following = [&](unsigned shift) { utf8 += static_cast<char>(0x80U | (character >> shift & 0x3FU)); };
    if (character < 0x80) {
        utf8 += static_cast<char>(character);
    } else if (character < 0x800) {
        utf8 += static_cast<char>(0xC0U | character >> 6U);
        following(0);
    } else if (character < 0x10000) {
        utf8 += static_cast<char>(0xE0U | character >> 12U);
        following(6);
        following(0);
    } else {
        utf8 += static_cast<char>(0xF0U | character >> 18U);
        following(12);
        following(6);
        following(0);
    }
}

bool isUtf8(std::string_view text) {
    while (!text.empty()) {
        const bool replacement = text.starts_with("\uFFFD");
        if (takeCharacter(text) == replacementCharacter && !replacement) return false;
    }
    return true;
}

}  // namespace tolvan
