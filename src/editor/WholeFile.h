// Files that are read and written as a whole.
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace tolvan {

// Larger files are taken for something else than a program and are not read.
inline constexpr qint64 largestFile = qint64{64} * 1024 * 1024;

// Nothing if there is no ordinary file, or if it cannot be read or is too large.
std::optional<QByteArray> readWholeFile(const QString& path);

// Puts a new content in the place of a file, or of none. It is written beside the old one, which stays as it is if that
// fails (then the result is false). Permissions stay; a link stays a link.
bool replaceFile(const QString& path, const QByteArray& content);

}  // namespace tolvan
