#include "translator/ProgramText.h"

#include "platform/transliteration/MarkRoman.h"
#include "platform/transliteration/ReplaceRomanChars.h"

namespace tolvan {
namespace {

// In a marked text each "#" begins Latin text or Devanagari, in turn.
StyledText transliterateMarked(std::string_view marked) {
    StyledText text;
    bool latin = false;
    while (true) {
        const std::size_t mark = marked.find('#');
        const std::string_view span = marked.substr(0, mark);
        if (latin)
            text.append(span, Font::Latin);
        else
            text.append(ReplaceRomanChars(span), Font::Devanagari);
        if (mark == std::string_view::npos) return text;
        latin = !latin;
        marked.remove_prefix(mark + 1);
    }
}

}  // namespace

StyledText Transliterate(std::string_view roman) {
    return transliterateMarked(markRoman(roman));
}

StyledText ProgramText(std::string_view roman) {
    if (roman.empty()) return {};
    return transliterateMarked(markRoman(roman) + "  ");
}

}  // namespace tolvan
