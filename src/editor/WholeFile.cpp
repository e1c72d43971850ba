#include "editor/WholeFile.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace tolvan {

std::optional<QByteArray> readWholeFile(const QString& path) {
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly) || file.size() > largestFile) return std::nullopt;
    QByteArray content = file.readAll();
    if (file.error() != QFile::NoError) return std::nullopt;
    return content;
}

bool replaceFile(const QString& path, const QByteArray& content) {
    QSaveFile file(path);
    // commit() does not notice that what was still buffered found no room; flush() does.
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size() && file.flush() && file.commit();
}

}  // namespace tolvan
