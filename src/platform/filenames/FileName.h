// Names of files between Qt and the layers without Qt.
#pragma once

#include <QString>

#include <string>

namespace tolvan {

// As platform/files takes it: UTF-8 on Windows, the bytes that the system has elsewhere. And back.
std::string fileBytes(const QString& name);
QString fileName(const std::string& bytes);

}  // namespace tolvan
