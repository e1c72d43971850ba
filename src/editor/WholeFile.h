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

// Saves as platform/files/ReplaceFile.h says, and removes what interrupted saves left in the same folder. False if it
// failed.
bool replaceFile(const QString& path, const QByteArray& content, unsigned permissions = 0666);

}  // namespace tolvan
