// "s<pv"_deva: a literal of font-encoded text. The source file stays valid UTF-8: each character of the literal
// becomes its windows-1252 byte at compile time, and one that has none does not compile.
#pragma once

#include "platform/encoding/Windows1252.h"

#include <array>
#include <string_view>

namespace tolvan {
namespace detail {

template <std::size_t N>
struct Utf8Literal {
    char bytes[N];
    consteval Utf8Literal(const char (&text)[N]) {  // NOLINT(google-explicit-constructor): a literal converts
        for (std::size_t i = 0; i < N; ++i) bytes[i] = text[i];
    }
};

// One character of valid UTF-8 at `position`, which moves on to the next one.
constexpr char32_t nextCharacter(const char* bytes, std::size_t& position) {
    const auto lead = static_cast<unsigned char>(bytes[position++]);
    if (lead < 0x80) return lead;
    const int following = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : 1;
    char32_t character = lead & (0x3FU >> following);
    for (int i = 0; i < following; ++i)
        character = (character << 6) | (static_cast<unsigned char>(bytes[position++]) & 0x3FU);
    return character;
}

template <Utf8Literal literal>
struct DevaLiteral {
    static constexpr std::size_t length() {
        std::size_t count = 0;
        for (std::size_t position = 0; position + 1 < sizeof literal.bytes; ++count)
            nextCharacter(literal.bytes, position);
        return count;
    }
    static constexpr auto encode() {
        std::array<char, length() + 1> bytes{};
        std::size_t position = 0;
        for (std::size_t i = 0; i < length(); ++i)
            bytes[i] = static_cast<char>(unicodeToWindows1252(nextCharacter(literal.bytes, position)).value());
        return bytes;
    }
    static constexpr auto encoded = encode();
};

}  // namespace detail

// The text is followed by a NUL that does not count, and lives as long as the program.
template <detail::Utf8Literal literal>
constexpr std::string_view operator""_deva() {
    using Literal = detail::DevaLiteral<literal>;
    return {Literal::encoded.data(), Literal::encoded.size() - 1};
}

}  // namespace tolvan
