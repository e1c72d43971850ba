#pragma once
#include "platform/encoding/Windows1252.h"
#include "platform/richtext/StyledText.h"

#include <QFont>
#include <QString>

#include <string_view>

namespace tolvan {
inline QFont qtFont(Font font) {
    return QFont(font == Font::Devanagari ? QStringLiteral("Sanskrit 1.2") : QStringLiteral("Liberation Serif"));
}
inline QString toQString(std::string_view bytes) {
    QString text;
    for (const char byte : bytes) text += QChar(windows1252ToUnicode(static_cast<std::uint8_t>(byte)));
    return text;
}
}  // namespace tolvan
