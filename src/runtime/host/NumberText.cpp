#include "runtime/host/NumberText.h"

#include "platform/encoding/Ascii.h"
#include "translator/MessageTable.h"

#include <algorithm>

namespace tolvan {

std::string markNumber(std::string_view plain) {
    std::string marked;
    for (std::size_t i = 0; i < plain.size();) {
        const bool latin = !isDigit(plain[i]);
        const auto* const end =
            std::find_if(plain.begin() + i, plain.end(), [&](char c) { return isDigit(c) == latin; });
        const std::string_view run(plain.begin() + i, end);
        if (latin) marked += '{';
        marked += run;
        if (latin) marked += '}';
        i += run.size();
    }
    return marked;
}

std::string withoutRunMarks(std::string_view text) {
    std::string plain(text);
    std::erase_if(plain, [](char c) { return c == '{' || c == '}'; });
    return plain;
}

std::string NumberText::boolean(bool on) const {
    constexpr int trueWord = 32766;
    constexpr int falseWord = 32767;
    std::string_view word = findMessage(on ? trueWord : falseWord).value_or("");
    constexpr std::string_view fontSwitch = "\\f1";
    if (word.starts_with(fontSwitch)) word.remove_prefix(fontSwitch.size());
    return std::string(word);
}

}  // namespace tolvan
