// 8-bit text as the characters that a text document can hold and show. Every byte has a character of its own, so that
// any text comes back as it was: what a document would take as its own mark or not show at all (NUL, a carriage return
// without its line feed, a soft hyphen...) is a control picture or a private-use character.
#pragma once

#include <QChar>
#include <QString>
#include <QStringView>

#include <string>
#include <string_view>

namespace tolvan {

QString toShown(std::string_view bytes);

// A character that toShown never makes is left out.
std::string fromShown(QStringView shown);

}  // namespace tolvan
