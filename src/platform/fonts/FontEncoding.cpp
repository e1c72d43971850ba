#include "platform/fonts/FontEncoding.h"

#include "platform/encoding/Unicode.h"
#include "platform/encoding/Windows1252.h"

#include <QList>

#include <algorithm>

namespace tolvan {

QString toQString(std::string_view bytes) {
    QString text(static_cast<qsizetype>(bytes.size()), Qt::Uninitialized);
    QChar* character = text.data();
    for (const char byte : bytes) *character++ = QChar(windows1252ToUnicode(static_cast<std::uint8_t>(byte)));
    return text;
}

std::string toFontEncoded(QStringView text) {
    std::string bytes;
    bytes.reserve(static_cast<std::size_t>(text.size()));
    for (const char32_t character : text.toUcs4())
        if (const auto code = unicodeToWindows1252(character)) bytes += static_cast<char>(*code);
    return bytes;
}

std::optional<char32_t> firstWithoutCode(QStringView text) {
    for (const char32_t character : text.toUcs4())
        if (!unicodeToWindows1252(character)) return character;
    return std::nullopt;
}

bool hasDevanagari(QStringView unicode) {
    return std::any_of(unicode.begin(), unicode.end(), [](QChar unit) { return isDevanagari(unit.unicode()); });
}

}  // namespace tolvan
