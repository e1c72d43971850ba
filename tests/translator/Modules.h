// Expected modules, written so that they can be read.
#pragma once

#include <string>
#include <string_view>

namespace tolvan {

// LF stands for CR LF, "!" (and a blank after it) for the poll and the end of its line, "@1" to "@9" for the first
// names of a program.
inline std::string moduleText(std::string_view text) {
    std::string module;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\n') {
            module += "\r\n";
        } else if (text[i] == '!') {
            module += "if not parentform.checkforevents then err.raise 1001\r\n";
            if (text.substr(i + 1).starts_with(' ')) ++i;
        } else if (text[i] == '@') {
            module.append(9, 'a').append(1, static_cast<char>('a' + text[++i] - '0'));
        } else {
            module += text[i];
        }
    }
    return module;
}

}  // namespace tolvan
