// Text by letters as a reader counts them: a Devanagari letter is a consonant or conjunct with all its signs (क्षे is
// one), or a vowel with what stands on it; everything else, Latin text included, counts by character.
#pragma once

#include "platform/richtext/StyledText.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tolvan {

// The letters of a text in their order; together they are the whole text. Any sequence of codes has letters: a sign
// without a consonant is one by itself.
std::vector<StyledView> lettersOf(StyledView text);

// The letters of a text that is given in internal text form, for questions by number. Numbers of letters count from 1.
class LetterText {
  public:
    explicit LetterText(std::string_view internalText);

    std::size_t count() const { return letters_.size(); }
    // `count` letters from `first` on, as far as there are so many, in internal text form.
    std::string part(std::size_t first, std::size_t count) const;
    std::string backwards() const;
    // The number of the first letter of the first place where `wanted` stands; nothing if it stands nowhere. An empty
    // text stands before the first letter of any text that has one.
    std::optional<std::size_t> find(const LetterText& wanted) const { return findFrom(wanted, 1); }
    // The text with `by` in each place of `wanted`, from the left; an empty `wanted` stands nowhere. Nothing where it
    // would have more than `mostCodes`.
    std::optional<std::string> replaced(const LetterText& wanted, const LetterText& by, std::size_t mostCodes) const;

  private:
    std::optional<std::size_t> findFrom(const LetterText& wanted, std::size_t first) const;

    StyledText text_;
    std::vector<StyledView> letters_;
};

}  // namespace tolvan
