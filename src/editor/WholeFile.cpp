#include "editor/WholeFile.h"

#include "platform/filenames/FileName.h"
#include "platform/files/ReplaceFile.h"

#include <QFile>
#include <QFileInfo>

namespace tolvan {

std::optional<QByteArray> readWholeFile(const QString& path) {
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly) || file.size() > largestFile) return std::nullopt;
    QByteArray content = file.readAll();
    if (file.error() != QFile::NoError) return std::nullopt;
    return content;
}

bool replaceFile(const QString& path, const QByteArray& content, unsigned permissions) {
    removeUnfinishedSaves(fileBytes(QFileInfo(path).absolutePath()));
    return replaceFile(fileBytes(path), {content.constData(), static_cast<std::size_t>(content.size())}, permissions) ==
           0;
}

}  // namespace tolvan
