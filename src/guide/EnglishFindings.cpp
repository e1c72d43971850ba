#include "guide/EnglishFindings.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tolvan::guide {
namespace {

constexpr auto sentences = std::to_array<std::pair<std::string_view, std::string_view>>({
    {"open-latin", "A # that opens Latin text is never closed."},
    {"open-text", "The quotation mark of a text is never closed."},
    {"word-in-text", "A text or a comment holds a word that acts as a command there."},
    {"spelling", "A word is not known; a known one is spelled nearly so."},
    {"unclosed", "A block or function has no end."},
    {"unopened", "An end or an else has no beginning."},
    {"wrong-end", "A block ends with the end of another kind."},
    {"missing-word", "The sentence lacks a word that it needs."},
    {"brackets", "The place in a drawing sentence must stand in brackets."},
    {"order", "The words of the sentence stand in another order."},
    {"ending", "The ending of the colour does not agree with the figure."},
    {"not-equal", "nAhI must stand before the condition, not behind barobar."},
    {"unknown-command", "The line begins with a word that does nothing there."},
    {"values", "The command has too few or too many values, or one that cannot be."},
    {"syntax", "The sentence is not built right."},
    {"never-set", "A name is used that is never given a value."},
    {"only-in-main", "A name has its value only outside the function, or only inside."},
    {"text-as-number", "A text is used as a number; aMkik makes a number of it."},
    {"same-name", "Two names count as one."},
});

}  // namespace

std::string_view kindInEnglish(std::string_view kind) {
    const auto* const found = std::ranges::find(sentences, kind, &decltype(sentences)::value_type::first);
    return found == sentences.end() ? std::string_view() : found->second;
}

}  // namespace tolvan::guide
