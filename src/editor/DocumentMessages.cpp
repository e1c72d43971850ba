#include "editor/DocumentMessages.h"

#include "platform/fonts/FontEncoding.h"
#include "platform/richtext/RtfWriter.h"

#include <algorithm>

namespace tolvan::messages {
namespace {

constexpr std::size_t suffixLength = 4;  // ".tvp"

std::string aboutFile(const QString& path, std::string_view rest) {
    return std::string("\\f1tolvn beiskla \\f0"_deva).append(nameFragment(path)).append(rest);
}

}  // namespace

std::string nameFragment(const QString& name) {
    return RtfEscape(std::u16string_view(QStringView(name).utf16(), static_cast<std::size_t>(name.size())));
}

std::string notSaved(const QString& path) {
    return aboutFile(path, " \\f1hI )a#l saQvta AalI nahI\\f0."_deva);
}

std::string notReadable(const QString& path) {
    return aboutFile(path, " \\f1hI )a#l %\"fta AalI nahI\\f0."_deva);
}

std::string otherKind(const QString& path) {
    return std::string("\\f1tolvn beiskla ýa àakaracI )a#l %"_deva)
        .append(nameFragment(path.right(suffixLength)))
        .append("fta yet nahI\\f0."_deva);
}

std::string takeUpUnsaved(const QStringList& titles) {
    if (titles.size() == 1)
        return std::string("\\f0"_deva)
            .append(nameFragment(titles.first()))
            .append("\\f1  he àayaejn saQvlele nahI\\f0.\\f1  te prt Aa[ayce ka\\f0?"_deva);
    constexpr qsizetype mostShown = 8;
    std::string text("\\f1hI àayaejne saQvlelI nahIt\\f0:"_deva);
    for (const QString& title : titles.first(std::min(mostShown, titles.size())))
        text.append("{\\line}").append(nameFragment(title));
    if (titles.size() > mostShown) text.append("{\\line}... ").append(std::to_string(titles.size()));
    return text.append("{\\line}\\f1pihle Aata prt Aa[ayce ka\\f0? \\f1bakIcI puFCya ve¦I yetIl\\f0."_deva);
}

std::string helpFailed() {
    return std::string("\\f1mdt daovta AalI nahI\\f0."_deva);
}

}  // namespace tolvan::messages
