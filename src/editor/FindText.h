// Searching in Roman text, which is 8-bit. Positions are from 0.
//
// A text is found as it is typed and as it is shown: the "#" that part Latin from Devanagari text are not seen in the
// Devanagari pane, so that one who does not type any finds "ka" in `#"#ka#"#` as well. What is found then has its spans
// whole.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tolvan {

enum class LetterCase { Exact, Same };  // Same: ASCII letters count as the same in both cases

struct FoundText {
    std::size_t start = 0;
    std::size_t length = 0;
    friend bool operator==(const FoundText&, const FoundText&) = default;
};

// The first occurrence that begins at `from` or later. An empty text is never found.
std::optional<FoundText> findForwards(std::string_view text, std::string_view wanted, std::size_t from,
                                      LetterCase letterCase);
// The last occurrence that ends at `before` or earlier.
std::optional<FoundText> findBackwards(std::string_view text, std::string_view wanted, std::size_t before,
                                       LetterCase letterCase);

// A text without "#" as a program spells what reads so: its quotes in spans of their own.
std::string spelledAsShown(std::string_view text);

// What is put in the place of `found`: where that was found as it is shown, the quotes of the replacement get their
// spans.
std::string replacementFor(std::string_view found, std::string_view wanted, std::string_view replacement);

// Every occurrence replaced, from the first character on, compared exactly. What is put in is not searched.
std::string replaceAll(std::string_view text, std::string_view wanted, std::string_view replacement);

}  // namespace tolvan
