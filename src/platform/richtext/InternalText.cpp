#include "platform/richtext/InternalText.h"

#include <algorithm>
#include <utility>

namespace tolvan {
namespace {

bool isBrace(char character) {
    return character == '{' || character == '}';
}

// Takes the characters of a text and writes it in internal text form.
class MarkedText {
  public:
    explicit MarkedText(std::size_t expectedSize) { marked_.reserve(expectedSize); }

    void runMark(char brace) {
        doubleBackslashes();
        marked_ += brace;
    }
    void character(char character) {
        if (isBrace(character)) {
            doubleBackslashes();
            marked_ += '\\';
        }
        marked_ += character;
        backslashes_ = character == '\\' ? backslashes_ + 1 : 0;
    }
    std::string take() { return std::move(marked_); }

  private:
    // Those directly before a brace, which would be read together with it.
    void doubleBackslashes() {
        marked_.append(backslashes_, '\\');
        backslashes_ = 0;
    }

    std::string marked_;
    std::size_t backslashes_ = 0;  // of the text, written last
};

}  // namespace

std::string RomanMark(StyledView text) {
    MarkedText marked(text.size() + text.size() / 4);
    bool latinRun = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool latin = text.font(i) != Font::Devanagari;
        if (latin != latinRun) marked.runMark(latin ? '{' : '}');
        latinRun = latin;
        marked.character(text[i]);
    }
    if (latinRun) marked.runMark('}');
    return marked.take();
}

std::vector<InternalTextRun> InternalTextRuns(std::string_view text) {
    std::vector<InternalTextRun> runs;
    std::string run;
    const auto endRun = [&](Font font, bool dropped) {
        if (!run.empty()) runs.push_back({std::move(run), font, dropped});
        run.clear();
    };
    bool latinRun = false;
    while (!text.empty()) {
        const std::size_t special = std::min(text.find_first_of("\\{}"), text.size());
        run += text.substr(0, special);
        text.remove_prefix(special);
        const std::size_t backslashes = std::min(text.find_first_not_of('\\'), text.size());
        text.remove_prefix(backslashes);
        const bool beforeBrace = !text.empty() && isBrace(text.front());
        run.append(beforeBrace ? backslashes / 2 : backslashes, '\\');
        if (!beforeBrace) continue;
        const char brace = text.front();
        text.remove_prefix(1);
        if (backslashes % 2 == 1) {
            run += brace;
        } else {
            latinRun = brace == '{';
            endRun(latinRun ? Font::Devanagari : Font::Latin, !latinRun);
        }
    }
    endRun(latinRun ? Font::Latin : Font::Devanagari, false);
    return runs;
}

StyledText styledText(std::string_view internalText) {
    return styledText(InternalTextRuns(internalText));
}

StyledText styledText(const std::vector<InternalTextRun>& runs) {
    StyledText text;
    for (const InternalTextRun& run : runs) text.append(run.text, run.font);
    return text;
}

std::string plainText(std::string_view internalText) {
    std::string plain;
    for (const InternalTextRun& run : InternalTextRuns(internalText)) plain += run.text;
    return plain;
}

}  // namespace tolvan
