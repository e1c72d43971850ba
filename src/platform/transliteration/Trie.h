// Words to numbers, built at compile time; finds the longest word that a text begins with.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace tolvan {

// Words are sequences of symbols below `Symbols`. `Nodes` is the room: one node a distinct beginning of a word, and the
// root. Values are below `noWord`.
template <std::size_t Symbols, std::size_t Nodes>
class Trie {
  public:
    using Node = std::uint8_t;
    static_assert(Nodes <= 256);
    static constexpr Node root = 0;
    static constexpr std::uint8_t noWord = 255;

    constexpr Trie() { values_.fill(noWord); }

    // A word that is there already keeps its value.
    template <typename Word>
    constexpr void insert(const Word& word, std::uint8_t value) {
        Node node = root;
        for (const auto symbol : word) {
            Node& following = next_.at(node).at(static_cast<std::size_t>(symbol));
            if (following == root) following = ++lastNode_;
            node = following;
        }
        if (values_.at(node) == noWord) values_.at(node) = value;
    }

    // The node after `node`, or the root when no word goes on that way.
    constexpr Node step(Node node, std::size_t symbol) const { return symbol < Symbols ? next_[node][symbol] : root; }
    constexpr std::uint8_t value(Node node) const { return values_[node]; }

  private:
    std::array<std::array<Node, Symbols>, Nodes> next_{};
    std::array<std::uint8_t, Nodes> values_{};
    Node lastNode_ = root;
};

}  // namespace tolvan
