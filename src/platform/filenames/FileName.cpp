#include "platform/filenames/FileName.h"

#include <QFile>

namespace tolvan {

#ifdef Q_OS_WIN
std::string fileBytes(const QString& name) {
    return name.toStdString();
}

QString fileName(const std::string& bytes) {
    return QString::fromStdString(bytes);
}
#else
std::string fileBytes(const QString& name) {
    return QFile::encodeName(name).toStdString();
}

QString fileName(const std::string& bytes) {
    return QFile::decodeName(bytes.c_str());
}
#endif

}  // namespace tolvan
