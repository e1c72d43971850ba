// Looks for a text in others, forwards or backwards, in a time that grows with the bytes looked at and not with the
// length of the text looked for. One searcher searches in one direction.
#pragma once

#include "platform/script/library/FunctionArguments.h"

#include <cstddef>
#include <string_view>

namespace tolvan::script {

class Searcher {
  public:
    static constexpr std::size_t notFound = std::string_view::npos;

    // `wanted` must outlive the searcher.
    Searcher(Context& context, std::string_view wanted, Comparison comparison);
    ~Searcher();
    Searcher(const Searcher&) = delete;
    Searcher& operator=(const Searcher&) = delete;

    // Where `wanted` first stands in `text` at `from` or after. The empty text is found at `from`.
    std::size_t find(std::string_view text, std::size_t from) const;
    // Where it last stands in `text`. The empty text is found at the end.
    std::size_t findLast(std::string_view text) const;

  private:
    template <class Step>
    std::size_t scan(std::string_view text, std::size_t from, Step step) const;
    template <class Step>
    void prepare(Step step) const;
    char folded(char c) const { return comparison_ == Comparison::Text ? lowerLetter(c) : c; }

    Context& context_;
    std::string_view wanted_;
    Comparison comparison_;
    // How much of the beginning of `wanted` (seen in the direction of the search) still holds where the byte after
    // its first i does not; made when it is first needed, on the script's heap.
    mutable std::uint32_t* fallback_ = nullptr;
};

}  // namespace tolvan::script
