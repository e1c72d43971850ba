#include "guide/Texts.h"

#include "translator/MessageTable.h"
#include "translator/ProgramText.h"

namespace tolvan::guide {

StyledText sentence(std::string_view text, std::initializer_list<StyledText> inserted) {
    StyledText made;
    while (true) {
        const std::size_t place = text.find('{');
        made.append(Transliterate(text.substr(0, place)));
        if (place == std::string_view::npos) return made;
        const auto number = static_cast<std::size_t>(text[place + 1] - '0');
        if (number < inserted.size()) made.append(*(inserted.begin() + number));
        text.remove_prefix(place + 3);
    }
}

StyledText shown(std::string_view roman) {
    return Transliterate(roman);
}

// "\f1" switches to the Devanagari font, "\f0" to the Latin one, each with a blank after it.
StyledText messageText(int number) {
    StyledText text;
    std::string_view rest = findMessage(number).value_or(std::string_view());
    Font font = Font::Latin;
    while (!rest.empty()) {
        if (rest.starts_with("\\f0") || rest.starts_with("\\f1")) {
            font = rest[2] == '1' ? Font::Devanagari : Font::Latin;
            rest.remove_prefix(3);
            if (font == Font::Latin && rest.starts_with(' ')) rest.remove_prefix(1);
            continue;
        }
        text.append(rest.substr(0, 1), font);
        rest.remove_prefix(1);
    }
    return text;
}

}  // namespace tolvan::guide
