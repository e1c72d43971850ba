#include "platform/transliteration/MarkRoman.h"

#include <array>
#include <utility>

namespace tolvan {
namespace {

constexpr std::string_view punctuation = R"((),:?;'[]|_~`!@$%&.\^>+<-/*=)";

constexpr auto punctuationCodes = [] {
    std::array<bool, 256> codes{};
    for (const char character : punctuation) codes[static_cast<unsigned char>(character)] = true;
    return codes;
}();

// Marks in the result alternate between opening and closing, so two that touch are an empty pair and are dropped.
class Marking {
  public:
    explicit Marking(std::size_t expectedSize) { text_.reserve(expectedSize); }

    void outside(std::string_view roman) {
        for (const char character : roman) {
            const bool latin = isRomanPunctuation(character);
            if (latin) mark();
            text_ += character;
            if (latin) mark();
        }
    }
    void span(std::string_view roman) {
        mark();
        text_ += roman;
        mark();
    }
    std::string take() { return std::move(text_); }

  private:
    void mark() {
        if (text_.ends_with('#'))
            text_.pop_back();
        else
            text_ += '#';
    }

    std::string text_;
};

}  // namespace

bool isRomanPunctuation(char character) {
    return punctuationCodes[static_cast<unsigned char>(character)];
}

std::string markRoman(std::string_view roman) {
    Marking marking(roman.size() + roman.size() / 4);
    while (true) {
        const std::size_t open = roman.find('#');
        marking.outside(roman.substr(0, open));
        if (open == std::string_view::npos) break;
        roman.remove_prefix(open + 1);

        const std::size_t close = roman.find('#');
        if (close == std::string_view::npos) continue;
        marking.span(roman.substr(0, close));
        roman.remove_prefix(close + 1);
    }
    return marking.take();
}

}  // namespace tolvan
