#include "guide/Checks.h"

#include <array>

namespace tolvan::guide {
namespace {

constexpr auto table = std::to_array<Check>({
    {"open-latin", Weight::Error, find::openLatin},
    {"open-text", Weight::Error, find::openQuotes},
    {"word-in-text", Weight::Error, find::wordsInTexts},
    {"spelling", Weight::Error, find::misspelt},
    {"unclosed", Weight::Error, find::unclosed},
    {"unopened", Weight::Error, find::unopened},
    {"wrong-end", Weight::Error, find::wrongEnds},
    {"missing-word", Weight::Error, find::missingWords},
    {"brackets", Weight::Error, find::missingBrackets},
    {"order", Weight::Error, find::wrongOrder},
    {"ending", Weight::Advice, find::wrongEndings},
    {"not-equal", Weight::Error, find::notEqual},
    {"unknown-command", Weight::Error, find::unknownCommands},
    {"values", Weight::Error, find::wrongValues},
    {"syntax", Weight::Error, find::declaredTwice},
    {"syntax", Weight::Error, find::tooDeep},
    {"syntax", Weight::Error, find::syntaxErrors},
    {"never-set", Weight::Advice, find::neverSet},
    {"only-in-main", Weight::Advice, find::onlyInMain},
    {"text-as-number", Weight::Advice, find::textsAsNumbers},
    {"same-name", Weight::Advice, find::sameNames},
});

}  // namespace

std::span<const Check> checks() {
    return table;
}

void Report::add(std::size_t line, const Word& place, StyledText text, std::vector<Correction> corrections) {
    add(line, place.roman, place.program, std::move(text), std::move(corrections));
}

void Report::add(std::size_t line, Columns roman, Columns programPlace, StyledText text,
                 std::vector<Correction> corrections) {
    if (weight_ == Weight::Error) errors_[line] = true;
    findings_.push_back(
        {line + 1, roman, programPlace, kind_, weight_, std::move(text), std::move(corrections), {}, 0, 0});
}

Correction replaceWord(std::size_t line, const Word& word, std::string_view text, bool sure) {
    return {line + 1, word.roman, std::string(text), sure};
}

Correction insertAt(std::size_t line, std::size_t column, std::string_view text, bool sure) {
    return {line + 1, {column, column}, std::string(text), sure};
}

}  // namespace tolvan::guide
