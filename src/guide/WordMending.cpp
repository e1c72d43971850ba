#include "guide/WordMending.h"

#include "guide/Program.h"
#include "platform/transliteration/ReplaceRomanChars.h"

#include <algorithm>
#include <map>

namespace tolvan::guide {
namespace {

std::string keyOf(std::string_view word) {
    const Sounds sounds = plainKey(word);
    return {sounds.begin(), sounds.end()};
}

// The words by their key; none for a key that two words share.
const std::map<std::string, std::string_view>& wordsByKey() {
    static const auto all = [] {
        std::map<std::string, std::string_view> words;
        for (const LanguageWord& word : languageWords())
            if (const auto [at, isNew] = words.emplace(keyOf(word.roman), word.roman); !isNew) at->second = {};
        return words;
    }();
    return all;
}

}  // namespace

std::string_view wordToPut(std::string_view typed) {
    const auto found = wordsByKey().find(keyOf(typed));
    if (found == wordsByKey().end() || findLanguageWord(LineConvert(typed)) != nullptr) return {};
    return found->second;
}

bool isNameOf(std::string_view roman, std::string_view word, std::size_t line) {
    LineStore store;
    const std::string glyphs = LineConvert(word);
    const std::vector<LinePointer> lines = store.read(roman);
    for (std::size_t i = 0; i < lines.size(); ++i) {
        WordNumbers names = lines[i]->statement.sets;
        if (lines[i]->statement.function) names.push_back(*lines[i]->statement.function);
        const auto isWord = [&](std::size_t name) { return lines[i]->words[name].glyphs == glyphs; };
        if (i != line && std::any_of(names.begin(), names.end(), isWord)) return true;
    }
    return false;
}

bool isInTextOrComment(std::string_view beginning) {
    const Line line(beginning);
    return line.comment || line.openLatin || line.openQuote;
}

}  // namespace tolvan::guide
