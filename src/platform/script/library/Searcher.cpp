#include "platform/script/library/Searcher.h"

#include <cstring>

namespace tolvan::script {

namespace {

// The direction of a search: where the i-th byte of a text of `size` bytes lies.
struct Forwards {
    static std::size_t at(std::size_t i, std::size_t) { return i; }
};
struct Backwards {
    static std::size_t at(std::size_t i, std::size_t size) { return size - 1 - i; }
};

}  // namespace

Searcher::Searcher(Context& context, std::string_view wanted, Comparison comparison)
    : context_(context), wanted_(wanted), comparison_(comparison) {}

Searcher::~Searcher() {
    if (fallback_ != nullptr) context_.heap().release(fallback_, wanted_.size() * sizeof(std::uint32_t));
}

std::size_t Searcher::find(std::string_view text, std::size_t from) const {
    if (from > text.size() || wanted_.size() > text.size() - from) return notFound;
    if (wanted_.empty()) return from;
#ifdef __GLIBC__
    if (comparison_ == Comparison::Text) return scan(text, from, Forwards());
    const char* start = text.data() + from;
    const std::size_t size = text.size() - from;
    const void* found = wanted_.size() == 1 ? std::memchr(start, static_cast<unsigned char>(wanted_.front()), size)
                                            : memmem(start, size, wanted_.data(), wanted_.size());
    return found == nullptr ? notFound : static_cast<std::size_t>(static_cast<const char*>(found) - text.data());
#else
    if (comparison_ == Comparison::Text || wanted_.size() > 1) return scan(text, from, Forwards());
    const std::size_t found = text.find(wanted_.front(), from);
    return found == std::string_view::npos ? notFound : found;
#endif
}

std::size_t Searcher::findLast(std::string_view text) const {
    if (wanted_.size() > text.size()) return notFound;
    if (wanted_.empty()) return text.size();
    const std::size_t found = scan(text, 0, Backwards());
    return found == notFound ? notFound : text.size() - found - wanted_.size();
}

// Knuth, Morris and Pratt: never looks at a byte of the text twice.
template <class Step>
std::size_t Searcher::scan(std::string_view text, std::size_t from, Step step) const {
    prepare(step);
    std::size_t matched = 0;
    for (std::size_t i = from; i < text.size(); ++i) {
        const char c = folded(text[step.at(i, text.size())]);
        while (matched > 0 && folded(wanted_[step.at(matched, wanted_.size())]) != c) matched = fallback_[matched];
        if (folded(wanted_[step.at(matched, wanted_.size())]) == c) ++matched;
        if (matched == wanted_.size()) return i + 1 - matched;
    }
    return notFound;
}

template <class Step>
void Searcher::prepare(Step step) const {
    if (fallback_ != nullptr) return;
    const std::size_t size = wanted_.size();
    fallback_ = static_cast<std::uint32_t*>(context_.heap().allocate(size * sizeof(std::uint32_t)));
    const auto wantedAt = [&](std::size_t i) { return folded(wanted_[step.at(i, size)]); };
    fallback_[0] = 0;
    if (size > 1) fallback_[1] = 0;
    std::uint32_t matched = 0;
    for (std::size_t i = 1; i + 1 < size; ++i) {
        while (matched > 0 && wantedAt(matched) != wantedAt(i)) matched = fallback_[matched];
        if (wantedAt(matched) == wantedAt(i)) ++matched;
        fallback_[i + 1] = matched;
    }
}

}  // namespace tolvan::script
