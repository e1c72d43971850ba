#include "platform/richtext/InternalText.h"

#include <utility>

namespace tolvan {
namespace {

bool isBrace(char character) {
    return character == '{' || character == '}';
}

void replaceAll(std::string& text, std::string_view what, std::string_view by) {
    std::string replaced;
    std::size_t copied = 0;
    for (std::size_t found = text.find(what); found != std::string::npos; found = text.find(what, copied)) {
        replaced.append(text, copied, found - copied).append(by);
        copied = found + what.size();
    }
    if (copied > 0) text = replaced.append(text, copied);
}

std::string withoutEscapes(std::string_view text) {
    std::string plain(text);
    replaceAll(plain, "\\{", "{");
    replaceAll(plain, "\\}", "}");
    return plain;
}

}  // namespace

std::string RomanMark(StyledView text) {
    std::string marked;
    marked.reserve(text.size() + text.size() / 4);
    bool latinRun = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool latin = text.font(i) != Font::Devanagari;
        if (latin != latinRun) marked += latin ? '{' : '}';
        latinRun = latin;
        if (isBrace(text[i])) marked += '\\';
        marked += text[i];
    }
    if (latinRun) marked += '}';
    return marked;
}

std::vector<InternalTextRun> InternalTextRuns(std::string_view text) {
    std::vector<InternalTextRun> runs;
    std::size_t start = 0;
    const auto endRun = [&](std::size_t end, Font font, bool dropped) {
        if (end > start) runs.push_back({withoutEscapes(text.substr(start, end - start)), font, dropped});
        start = end + 1;
    };
    bool latinRun = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (!isBrace(text[i]) || (i > 0 && text[i - 1] == '\\')) continue;
        latinRun = text[i] == '{';
        endRun(i, latinRun ? Font::Devanagari : Font::Latin, !latinRun);
    }
    endRun(text.size(), latinRun ? Font::Latin : Font::Devanagari, false);
    return runs;
}

std::string plainText(std::string_view internalText) {
    std::string plain;
    for (const InternalTextRun& run : InternalTextRuns(internalText)) plain += run.text;
    return plain;
}

}  // namespace tolvan
