#include "editor/FindText.h"

#include "platform/encoding/Ascii.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace tolvan {
namespace {

constexpr char mark = '#';
constexpr std::size_t nowhere = std::string_view::npos;

// The text that is searched, and where it came from.
class Searched {
  public:
    Searched(std::string_view text, std::string_view wanted, LetterCase letterCase)
        : text_(text), wanted_(wanted), shown_(text) {
        if (wanted.find(mark) == nowhere && text.find(mark) != nowhere) leaveMarksOut();
        if (letterCase == LetterCase::Exact) return;
        shown_ = lowerCase(shown_);
        wanted_ = lowerCase(wanted_);
    }

    std::optional<FoundText> first(std::size_t from) const {
        std::size_t at = shown_.find(wanted_, shownPlace(from));
        // One that begins before `from` if its spans are taken with it.
        while (at != nowhere && found(at).start < from) at = shown_.find(wanted_, at + 1);
        return at == nowhere ? std::nullopt : std::optional(found(at));
    }
    std::optional<FoundText> last(std::size_t before) const {
        const std::size_t end = shownPlace(before);
        if (end < wanted_.size()) return std::nullopt;
        std::size_t at = shown_.rfind(wanted_, end - wanted_.size());
        while (at != nowhere && found(at).start + found(at).length > before)
            at = at == 0 ? nowhere : shown_.rfind(wanted_, at - 1);
        return at == nowhere ? std::nullopt : std::optional(found(at));
    }

  private:
    void leaveMarksOut() {
        shown_.clear();
        for (std::size_t place = 0; place < text_.size(); ++place) {
            if (text_[place] == mark) continue;
            shown_ += text_[place];
            places_.push_back(place);
        }
    }

    // The first shown character at a place of the text or after it.
    std::size_t shownPlace(std::size_t place) const {
        if (places_.empty()) return std::min(place, shown_.size());
        return static_cast<std::size_t>(std::lower_bound(places_.begin(), places_.end(), place) - places_.begin());
    }
    std::size_t textPlace(std::size_t shownPlace) const { return places_.empty() ? shownPlace : places_[shownPlace]; }

    FoundText found(std::size_t at) const {
        std::size_t start = textPlace(at);
        std::size_t end = textPlace(at + wanted_.size() - 1) + 1;
        if (end - start == wanted_.size()) return {start, wanted_.size()};  // as it is typed
        if (start > 0 && text_[start - 1] == mark && isInSpan(start)) --start;
        if (end < text_.size() && text_[end] == mark && isInSpan(end)) ++end;
        return {start, end - start};
    }
    // The marks before a place are the characters there that are not shown.
    bool isInSpan(std::size_t place) const { return (place - shownPlace(place)) % 2 == 1; }

    std::string_view text_;
    std::string wanted_;
    std::string shown_;
    std::vector<std::size_t> places_;  // of the shown characters in the text; empty: all are shown
};

}  // namespace

std::optional<FoundText> findForwards(std::string_view text, std::string_view wanted, std::size_t from,
                                      LetterCase letterCase) {
    if (wanted.empty()) return std::nullopt;
    return Searched(text, wanted, letterCase).first(from);
}

std::optional<FoundText> findBackwards(std::string_view text, std::string_view wanted, std::size_t before,
                                       LetterCase letterCase) {
    if (wanted.empty()) return std::nullopt;
    return Searched(text, wanted, letterCase).last(before);
}

std::string spelledAsShown(std::string_view text) {
    if (text.find(mark) != nowhere) return std::string(text);
    std::string spelled;
    for (const char character : text)
        if (character == '"')
            spelled += "#\"#";
        else
            spelled += character;
    return spelled;
}

std::string replacementFor(std::string_view found, std::string_view wanted, std::string_view replacement) {
    const bool asShown = found.find(mark) != nowhere && wanted.find(mark) == nowhere;
    return asShown ? spelledAsShown(replacement) : std::string(replacement);
}

std::string replaceAll(std::string_view text, std::string_view wanted, std::string_view replacement) {
    if (wanted.empty()) return std::string(text);
    const Searched searched(text, wanted, LetterCase::Exact);
    std::string result;
    std::size_t from = 0;
    for (auto found = searched.first(0); found; found = searched.first(from)) {
        result.append(text.substr(from, found->start - from));
        result += replacementFor(text.substr(found->start, found->length), wanted, replacement);
        from = found->start + found->length;
    }
    return result.append(text.substr(from));
}

}  // namespace tolvan
