// Finds the longest spelling that a Roman text begins with.
#pragma once

#include "platform/encoding/Ascii.h"
#include "platform/transliteration/Spellings.h"
#include "platform/transliteration/Trie.h"

#include <array>
#include <optional>
#include <string_view>

namespace tolvan {

struct SpelledSound {
    Sound sound;
    std::size_t length;  // characters
};

namespace detail {

consteval auto makeSpellingTrie() {
    Trie<128, 128> trie;
    for (const Spelling& spelling : spellings) trie.insert(spelling.roman, static_cast<std::uint8_t>(spelling.sound));
    // Each spelling with any of its small letters as an idle capital: bit n of `capitals` stands for its letter n.
    // These come last, so that they never hide a spelling with that capital.
    for (const Spelling& spelling : spellings)
        for (unsigned capitals = 1; capitals < 1U << spelling.roman.size(); ++capitals) {
            std::array<char, 4> letters{};
            bool idle = true;
            for (std::size_t i = 0; i < spelling.roman.size(); ++i) {
                const bool capital = (capitals >> i & 1U) != 0;
                letters[i] = capital ? upperLetter(spelling.roman[i]) : spelling.roman[i];
                idle = idle && (!capital || idleCapitals.find(letters[i]) != std::string_view::npos);
            }
            if (idle)
                trie.insert(std::string_view(letters.data(), spelling.roman.size()),
                            static_cast<std::uint8_t>(spelling.sound));
        }
    return trie;
}

inline constexpr auto spellingTrie = makeSpellingTrie();

}  // namespace detail

constexpr std::optional<SpelledSound> longestSpelling(std::string_view roman) {
    using detail::spellingTrie;
    std::optional<SpelledSound> longest;
    auto node = spellingTrie.root;
    for (std::size_t i = 0; i < roman.size(); ++i) {
        node = spellingTrie.step(node, static_cast<unsigned char>(roman[i]));
        if (node == spellingTrie.root) break;
        if (spellingTrie.value(node) != spellingTrie.noWord)
            longest = SpelledSound{static_cast<Sound>(spellingTrie.value(node)), i + 1};
    }
    return longest;
}

}  // namespace tolvan
