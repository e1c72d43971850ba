// Any text gets findings that lie in it, and corrections that can be made; a second check of it says the same.

#include "guide/Guide.h"
#include "translator/LanguageWords.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace tolvan::guide {
namespace {

// High bytes stand for words of the language, which random bytes seldom spell.
std::string textOf(const std::uint8_t* data, std::size_t size) {
    std::string text;
    for (std::size_t i = 0; i < size; ++i) {
        const std::size_t word = data[i] - std::size_t{256} + languageWords().size();
        if (data[i] >= 256 - languageWords().size())
            text.append(languageWords()[word].roman) += ' ';
        else if (data[i] == '\n')
            text += "\r\n";
        else
            text += static_cast<char>(data[i]);
    }
    return text;
}

std::size_t lengthOf(const std::string& text, std::size_t line) {
    std::size_t start = 0;
    for (; line > 1; --line) start = text.find("\r\n", start) + 2;
    return std::min(text.find("\r\n", start), text.size()) - start;
}

}  // namespace
}  // namespace tolvan::guide

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tolvan::guide;
    const std::string text = textOf(data, size);
    Guide guide;
    const std::vector<Finding> findings = guide.check(text);
    for (const Finding& finding : findings) {
        if (finding.roman.from > finding.roman.to || finding.text.empty()) std::abort();
        if (finding.roman.to > lengthOf(text, finding.line)) std::abort();
        for (const Correction& correction : finding.corrections)
            if (corrected(text, correction) == text) std::abort();
    }
    if (guide.check(text).size() != findings.size()) std::abort();
    return 0;
}
