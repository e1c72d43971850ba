#include "runtime/DataFiles.h"

#include "platform/encoding/Deva.h"
#include "platform/filenames/FileName.h"
#include "platform/richtext/RtfWriter.h"

#include <QFileInfo>
#include <QStandardPaths>

namespace tolvan {
namespace {

constexpr std::string_view wantsToRead = "\\f1he àayaejn hI )a$l vacU paht Aahe\\f0: "_deva;
constexpr std::string_view wantsToWrite = "\\f1he àayaejn hI )a$l bdlU paht Aahe\\f0: "_deva;
constexpr std::string_view mayRead = "{\\line}\\f1tI vacU *aycI ka\\f0?"_deva;
constexpr std::string_view mayWrite = "{\\line}\\f1tI bdlU *aycI ka\\f0?"_deva;

}  // namespace

ReachableFiles dataFilesOf(const QString& programFile) {
    const QFileInfo folder(QFileInfo(programFile).absolutePath());
    const bool isUsable = !programFile.isEmpty() && folder.isWritable();
    const QString chosen =
        isUsable ? folder.absoluteFilePath() : QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return ReachableFiles(fileBytes(chosen));
}

std::string fileQuestion(const std::string& path, bool writing) {
    const QString name = fileName(path);
    return std::string(writing ? wantsToWrite : wantsToRead)
        .append(RtfEscape(std::u16string_view(QStringView(name).utf16(), static_cast<std::size_t>(name.size()))))
        .append(writing ? mayWrite : mayRead);
}

}  // namespace tolvan
