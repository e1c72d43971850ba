// Program text and message text: 8-bit characters, each with the font that shows it. The font carries meaning: the
// same byte is a letter in the Devanagari font and an operator in the Latin one.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tolvan {

enum class Font : std::uint8_t {
    Latin,       // "Times New Roman"
    Devanagari,  // "Sanskrit 1.2"
    Other,       // any further font that a rich text from outside may name
};

// A slice of a StyledText, which must outlive it. Positions are 0-based.
class StyledView {
  public:
    StyledView() = default;
    StyledView(std::string_view text, const Font* fonts) : text_(text), fonts_(fonts) {}

    std::string_view text() const { return text_; }
    std::size_t size() const { return text_.size(); }
    bool empty() const { return text_.empty(); }
    char operator[](std::size_t position) const { return text_[position]; }
    Font font(std::size_t position) const { return fonts_[position]; }
    const Font* fonts() const { return fonts_; }

    // At most `count` characters from `position`; nothing when that lies beyond the end.
    StyledView substr(std::size_t position, std::size_t count = std::string_view::npos) const {
        if (position >= size()) return {};
        return {text_.substr(position, count), fonts_ + position};
    }

  private:
    std::string_view text_;
    const Font* fonts_ = nullptr;
};

class StyledText {
  public:
    StyledText() = default;
    StyledText(std::string_view text, Font font) { append(text, font); }
    explicit StyledText(StyledView view) { append(view); }

    void append(std::string_view text, Font font) {
        text_.append(text);
        fonts_.insert(fonts_.end(), text.size(), font);
    }
    void append(StyledView view) {
        text_.append(view.text());
        fonts_.insert(fonts_.end(), view.fonts(), view.fonts() + view.size());
    }
    void clear() {
        text_.clear();
        fonts_.clear();
    }

    const std::string& text() const { return text_; }
    std::size_t size() const { return text_.size(); }
    bool empty() const { return text_.empty(); }
    Font font(std::size_t position) const { return fonts_[position]; }

    StyledView view() const { return {text_, fonts_.data()}; }
    operator StyledView() const { return view(); }  // NOLINT(google-explicit-constructor): as string to string_view

    friend bool operator==(const StyledText&, const StyledText&) = default;

  private:
    std::string text_;
    std::vector<Font> fonts_;  // as many as characters
};

}  // namespace tolvan
