#include "editor/panes/ShownText.h"

#include "platform/encoding/Windows1252.h"

#include <array>
#include <cstdint>
#include <optional>

namespace tolvan {
namespace {

constexpr char16_t controlPictures = 0x2400;
constexpr char16_t pictureOfDelete = 0x2421;
constexpr char16_t privateUse = 0xE000;

// Code 157 is a letter of the Devanagari font, the other codes without a windows-1252 character are not.
constexpr bool isInvisible(unsigned code) {
    return code == 129 || code == 141 || code == 143 || code == 144 || code == 160 || code == 173;
}

constexpr char16_t shownCharacter(unsigned code) {
    if (code == '\t') return u'\t';
    if (code < 32) return static_cast<char16_t>(controlPictures + code);
    if (code == 127) return pictureOfDelete;
    if (isInvisible(code)) return static_cast<char16_t>(privateUse + code);
    return windows1252ToUnicode(static_cast<std::uint8_t>(code));
}

constexpr auto shownCharacters = [] {
    std::array<char16_t, 256> characters{};
    for (unsigned code = 0; code < 256; ++code) characters[code] = shownCharacter(code);
    return characters;
}();

std::optional<unsigned> codeOf(char16_t shown) {
    if (shown == pictureOfDelete) return 127;
    if (shown >= controlPictures && shown < controlPictures + 32) return shown - controlPictures;
    if (shown >= privateUse && shown < privateUse + 256) return shown - privateUse;
    return unicodeToWindows1252(shown);
}

}  // namespace

QString toShown(std::string_view bytes) {
    QString shown(static_cast<qsizetype>(bytes.size()), Qt::Uninitialized);
    QChar* character = shown.data();
    for (const char byte : bytes) *character++ = shownCharacters[static_cast<unsigned char>(byte)];
    return shown;
}

std::string fromShown(QStringView shown) {
    std::string bytes;
    bytes.reserve(static_cast<std::size_t>(shown.size()));
    for (const QChar character : shown)
        if (const auto code = codeOf(character.unicode())) bytes += static_cast<char>(*code);
    return bytes;
}

}  // namespace tolvan
