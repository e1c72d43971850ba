// Where font-encoded text, one byte a glyph, meets Qt's strings: a byte is the character that windows-1252 gives it.
#pragma once

#include <QString>
#include <QStringView>

#include <optional>
#include <string>
#include <string_view>

namespace tolvan {

QString toQString(std::string_view bytes);

// The bytes of a text; a character that has none is left out.
std::string toFontEncoded(QStringView text);

// The first character of a text that has no byte, for the message that refuses it.
std::optional<char32_t> firstWithoutCode(QStringView text);

// Whether a text, which is Unicode, has characters of the Devanagari block.
bool hasDevanagari(QStringView unicode);

}  // namespace tolvan
